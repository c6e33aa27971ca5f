# Writes a compiler output folder: the headers, and small images.
#
#   folder               where, an existing folder
#   dags                 how many DAGs
#   ports                HMB ports of each DAG, half of them inputs
#   variables, smbs      vproc variables and SMBs of each DAG
#   image_size           bytes of each image
#   headers_only         1 to write no images

function define(name, value) {
  printf "#define\t%s\t%s\n", name, value > header
}

# The data between two DAGs, by the number of the DAG that reads it. The bytes that a DAG reads are free again for what
# the next one writes.
function describe_port(dag, stage, port, direction,    name, i) {
  name = dag "_stage_" stage "_" port
  printf "\n/* %s HMB_%s stage_%d_%d */\n", dag, direction, stage, port > header
  define(name "_qubrix_demangled_name", "\"" dag "/stage_" port "/conv2d/relu\"")
  define(name "_dbase_byte_offset", (stage % 2 * ports + port) * 4096)
  define(name "_dram_size_num_bytes", 4096)
  define(name "_datasize", 8)
  for (i = 1; i <= words; ++i) {
    define(name "_" word[i], (port * 37 + i * 1009) % 65536)
  }
  for (i = 1; i <= dims; ++i) {
    define(name "_" dim[i], (port + i) % 8 + 1)
  }
  for (i = 1; i <= bytes; ++i) {
    define(name "_" byte[i], (port + i) % 16)
  }
  for (i = 1; i <= flags; ++i) {
    define(name "_" flag[i], (port + i) % 2)
  }
}

function describe_vproc(dag, dag_number,    i, name) {
  for (i = 0; i < variables; ++i) {
    name = "vp_" dag_number "_" i
    printf "\n/* $%s */\n", name > header
    define(name "_boffset", i * 16)
    define(name "_bsize", 16)
  }
  for (i = 0; i < smbs; ++i) {
    printf "\n/* %s SMB_input block_%d */\n", dag, i > header
    define(dag "_block_" i "_vbase_byte_offset", i * 1024)
  }
}

function describe_dag(dag, dag_number,    i, image_start) {
  printf "/* %s, one of %d */\n", dag, dags > header
  define(dag "_DAG_NAME", "\"" dag "\"")
  define(dag "_use_ping_pong_vmem", dag_number % 2)
  # Each image begins on a page of its own, behind the one before.
  image_start = 65536 + dag_number * 4096 * int((image_size + 4095) / 4096)
  define(dag "_image_start", image_start)
  define(dag "_image_size", image_size)
  define(dag "_dagbin_start", image_start + int(image_size / 2))
  for (i = 0; i < ports; ++i) {
    if (i < ports / 2) {
      describe_port(dag, dag_number, i, "input")
    } else {
      describe_port(dag, dag_number + 1, i - int(ports / 2), "output")
    }
  }
  describe_vproc(dag, dag_number)
  printf "\n/* end of %s */\n", dag > header
}

BEGIN {
  words = split("drotate_bit_offset hflip_bit_offset vflip_bit_offset dflip_bit_offset " \
                "pflip_bit_offset dpitch_num_bytes", word, " ")
  dims = split("W H D P", dim, " ")
  bytes = split("dram_format sign expoffset expbits", byte, " ")
  flags = split("is_bitvector drotate hflip vflip dflip pflip", flag, " ")
  for (dag_number = 0; dag_number < dags; ++dag_number) {
    dag = "net_split_" dag_number
    header = folder "/_" dag ".h"
    describe_dag(dag, dag_number)
    close(header)
    if (!headers_only) {
      image = folder "/" dag ".dvi"
      printf "%-*s", image_size, "image of " dag > image
      close(image)
    }
  }
}
