/*
 * A loader for a board. It maps a package, finds DAGs by their names, copies the image of each to
 * its place in the memory plan and lists the ports that it has to connect.
 *
 *     loader PACKAGE DAG_NAME ...
 *
 * The memory of the board is simulated: 1 MiB from the address 0x90000000 on. Ends with 1, and says
 * why, when the package or an image does not fit.
 */
#define _POSIX_C_SOURCE 200809L

#include <fcntl.h>
#include <morvane/package_view.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#define MEMORY_BASE 0x90000000u
#define MEMORY_SIZE 0x100000u

static uint8_t memory[MEMORY_SIZE];

/* A text of a package as the two arguments of %.*s. */
#define TEXT(text) (int)(text).length, (text).bytes

static void refuse(const char* what, const char* why) {
  printf("loader: %s: %s\n", what, why);
  exit(1);
}

static void expect_ok(int status, const char* what) {
  if (status != MORVANE_VIEW_OK) {
    refuse(what, morvane_view_status_text(status));
  }
}

/* Maps a whole file, until the end of the program. */
static const uint8_t* map_file(const char* path, size_t* size) {
  struct stat properties;
  void* bytes = MAP_FAILED;
  const int file = open(path, O_RDONLY);
  if (file >= 0 && fstat(file, &properties) == 0 && properties.st_size > 0) {
    *size = (size_t)properties.st_size;
    bytes = mmap(NULL, *size, PROT_READ, MAP_PRIVATE, file, 0);
  }
  if (bytes == MAP_FAILED) {
    refuse(path, "cannot be mapped");
  }
  close(file);
  return bytes;
}

static void open_package(struct morvane_view* view, const char* path) {
  struct morvane_view_damage damage;
  size_t size = 0;
  const uint8_t* bytes = map_file(path, &size);
  if (morvane_view_open(view, bytes, size, &damage) != MORVANE_VIEW_OK) {
    printf("loader: at byte %lu of the package:\n", (unsigned long)damage.offset);
    refuse(path, morvane_view_status_text(damage.status));
  }
}

/* The address is one of the memory plan: it is compared before it is used. */
static void load_image(const struct morvane_view* view, const struct morvane_view_dvi* dvi) {
  const uint32_t address = dvi->dvi_img_vaddr;
  struct morvane_bytes image;
  expect_ok(morvane_view_image(view, dvi, &image), "image");
  if (address < MEMORY_BASE || address - MEMORY_BASE > MEMORY_SIZE ||
      image.size > MEMORY_SIZE - (address - MEMORY_BASE)) {
    refuse("image", "does not fit into the memory of the board");
  }
  memcpy(memory + (address - MEMORY_BASE), image.bytes, image.size);
  printf("%.*s: %lu bytes at 0x%08lx\n", TEXT(dvi->dag_name), (unsigned long)image.size,
         (unsigned long)address);
}

static void list_port(const char* direction, const struct morvane_view_port* port) {
  printf("  %-6s %.*s: %lu bytes at offset %lu\n", direction, TEXT(port->port_name),
         (unsigned long)port->port_size, (unsigned long)port->port_byte_offset);
}

static void list_ports(const struct morvane_view* view, const struct morvane_view_dvi* dvi) {
  struct morvane_view_port port;
  uint32_t i = 0;
  for (i = 0; i < dvi->input_num; ++i) {
    expect_ok(morvane_view_input(view, dvi, i, &port), "input");
    list_port("input", &port);
  }
  for (i = 0; i < dvi->output_num; ++i) {
    expect_ok(morvane_view_output(view, dvi, i, &port), "output");
    list_port("output", &port);
  }
}

int main(int argc, char** argv) {
  struct morvane_view view;
  struct morvane_view_dvi dvi;
  int i = 0;
  if (argc < 3) {
    refuse("usage", "loader PACKAGE DAG_NAME ...");
  }
  open_package(&view, argv[1]);
  for (i = 2; i < argc; ++i) {
    expect_ok(morvane_view_find(&view, argv[i], &dvi), argv[i]);
    load_image(&view, &dvi);
    list_ports(&view, &dvi);
  }
  return 0;
}
