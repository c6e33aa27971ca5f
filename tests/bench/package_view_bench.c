/*
 * What scripts/bench.sh measures of the reader for loaders. Every side is a run of its own:
 *
 *     package_view_bench open TIMES PACKAGE        opens a package
 *     package_view_bench table TIMES PACKAGE       adds up the four words of each table entry that
 *                                                  opening reads
 *     package_view_bench ports TIMES PACKAGE       walks all ports
 *     package_view_bench port_bytes TIMES PACKAGE  adds up the bytes that this walk reads
 *     package_view_bench faults PACKAGE            prints the page faults of opening
 *     package_view_bench empty                     prints the page faults of doing nothing
 */
#define _GNU_SOURCE

#include <fcntl.h>
#include <morvane/package_view.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

static void fail(const char* what) {
  fprintf(stderr, "package_view_bench: %s\n", what);
  exit(1);
}

static const uint8_t* map_file(const char* path, size_t* size) {
  struct stat properties;
  void* bytes = MAP_FAILED;
  const int file = open(path, O_RDONLY);
  if (file >= 0 && fstat(file, &properties) == 0) {
    *size = (size_t)properties.st_size;
    bytes = mmap(NULL, *size, PROT_READ, MAP_PRIVATE, file, 0);
  }
  if (bytes == MAP_FAILED) {
    fail("the package cannot be mapped");
  }
  return bytes;
}

static void open_view(struct morvane_view* view, const uint8_t* bytes, size_t size) {
  if (morvane_view_open(view, bytes, size, NULL) != MORVANE_VIEW_OK) {
    fail("the package is refused");
  }
}

static uint32_t word(const uint8_t* at) {
  uint32_t value = 0;
  memcpy(&value, at, sizeof value);
  return value;
}

static uint64_t sum_table(const uint8_t* bytes) {
  const uint32_t dvi_num = word(bytes + offsetof(struct morvane_pkg_header, dvi_num));
  const uint8_t* dvi = bytes + sizeof(struct morvane_pkg_header);
  uint64_t sum = 0;
  uint32_t i = 0;
  for (i = 0; i < dvi_num; ++i, dvi += sizeof(struct morvane_dvi_desc)) {
    sum += word(dvi + offsetof(struct morvane_dvi_desc, dvi_img_size));
    sum += word(dvi + offsetof(struct morvane_dvi_desc, input_num));
    sum += word(dvi + offsetof(struct morvane_dvi_desc, output_num));
    sum += word(dvi + offsetof(struct morvane_dvi_desc, dvi_pkg_size));
  }
  return sum;
}

/* What the walk reads of a port: the numbers, and each text with its NUL. */
static uint64_t sum_port(const uint8_t* port) {
  const uint8_t* const port_name = port + offsetof(struct morvane_port_desc, port_name);
  const uint8_t* const layer_name = port + offsetof(struct morvane_port_desc, layer_name);
  uint64_t sum = 0;
  size_t i = 0;
  for (i = 0; i < offsetof(struct morvane_port_desc, port_name); ++i) {
    sum += port[i];
  }
  for (i = 0; i < MORVANE_IO_NAME_WIDTH && port_name[i] != 0; ++i) {
    sum += port_name[i];
  }
  for (i = 0; i < MORVANE_IO_NAME_WIDTH && layer_name[i] != 0; ++i) {
    sum += layer_name[i];
  }
  return sum;
}

static uint64_t sum_ports(const struct morvane_view* view) {
  struct morvane_view_dvi dvi;
  uint64_t sum = 0;
  int status = morvane_view_first(view, &dvi);
  for (; status == MORVANE_VIEW_OK; status = morvane_view_next(view, &dvi)) {
    const uint64_t ports = (uint64_t)dvi.input_num + dvi.output_num;
    uint64_t i = 0;
    for (i = 0; i < ports; ++i) {
      sum += sum_port(view->bytes + dvi.block + (size_t)i * sizeof(struct morvane_port_desc));
    }
  }
  return sum;
}

static uint64_t use_port(const struct morvane_view_port* port) {
  return port->P + port->port_size + port->port_name.length + port->layer_name.length;
}

static uint64_t walk_ports(const struct morvane_view* view) {
  struct morvane_view_dvi dvi;
  struct morvane_view_port port;
  uint64_t sum = 0;
  int status = morvane_view_first(view, &dvi);
  for (; status == MORVANE_VIEW_OK; status = morvane_view_next(view, &dvi)) {
    uint32_t i = 0;
    for (i = 0; morvane_view_input(view, &dvi, i, &port) == MORVANE_VIEW_OK; ++i) {
      sum += use_port(&port);
    }
    for (i = 0; morvane_view_output(view, &dvi, i, &port) == MORVANE_VIEW_OK; ++i) {
      sum += use_port(&port);
    }
  }
  return sum;
}

static void print_faults(void) {
  struct rusage usage;
  getrusage(RUSAGE_SELF, &usage);
  printf("%ld\n", usage.ru_minflt + usage.ru_majflt);
}

static void repeat(const char* what, long times, const uint8_t* bytes, size_t size) {
  struct morvane_view view;
  volatile uint64_t sum = 0;
  open_view(&view, bytes, size);
  for (; times > 0; --times) {
    if (strcmp(what, "open") == 0) {
      open_view(&view, bytes, size);
      sum += view.sound_dvis;
    } else if (strcmp(what, "table") == 0) {
      sum += sum_table(bytes);
    } else if (strcmp(what, "ports") == 0) {
      sum += walk_ports(&view);
    } else if (strcmp(what, "port_bytes") == 0) {
      sum += sum_ports(&view);
    } else {
      fail("nothing is called so");
    }
  }
}

int main(int argc, char** argv) {
  struct morvane_view view;
  size_t size = 0;
  if (argc == 2 && strcmp(argv[1], "empty") == 0) {
    print_faults();
  } else if (argc == 3 && strcmp(argv[1], "faults") == 0) {
    const uint8_t* bytes = map_file(argv[2], &size);
    open_view(&view, bytes, size);
    print_faults();
  } else if (argc == 4) {
    const uint8_t* bytes = map_file(argv[3], &size);
    repeat(argv[1], atol(argv[2]), bytes, size);
  } else {
    fail("unknown arguments");
  }
  return 0;
}
