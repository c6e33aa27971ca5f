printf 'the package is elsewhere' >net.bin
