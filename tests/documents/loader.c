/*
 * A loader that checks everything in a package. It prints the records in the words of the tool's
 * report, and writes the images to a folder.
 *
 *     loader PACKAGE [FOLDER]
 *
 * Prints a reason and ends with 1 when the package is damaged.
 */
#include <morvane/package_format.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { KNOWN_VERSION = 0x02010006 };

static void refuse(const char* reason) {
  printf("loader: %s\n", reason);
  exit(1);
}

/* The part of the package that is still to be read. */
struct rest {
  const unsigned char* bytes;
  size_t length;
};

/* Takes count items off the front. All range checks are here. The product of two u32 fits in 64
 * bits. */
static const unsigned char* take(struct rest* rest, uint32_t count, uint32_t width) {
  const unsigned char* front = rest->bytes;
  const uint64_t wanted = (uint64_t)count * width;
  if (wanted > rest->length) {
    refuse("the package ends early");
  }
  rest->bytes += wanted;
  rest->length -= (size_t)wanted;
  return front;
}

/* Copies the record at a position of a list, as nothing in a package is aligned. */
#define RECORD(list, position, record) \
  memcpy(&record, (list) + (size_t)(position) * sizeof record, sizeof record)

/* The text of a field. A field without a NUL is damaged. */
static const char* text(const char* field, size_t width) {
  if (memchr(field, '\0', width) == NULL) {
    refuse("a text has no end");
  }
  return field;
}

#define TEXT(field) text(field, sizeof field)

static unsigned bit(const struct morvane_port_desc* port, unsigned mask) {
  return (port->flags & mask) != 0 ? 1 : 0;
}

static void print_port(const char* direction, uint32_t id, const struct morvane_port_desc* port) {
  printf("%s_id: %u\t port_size: %u\t port_byte_offset: %u\t bitvector: %u", direction, id,
         port->port_size, port->port_byte_offset, bit(port, MORVANE_PORT_BITVECTOR));
  printf("\t dim: (P, D, H, W) = ( %u, %u, %u, %u)\tpitch: %u\tdram_format: %u", port->P, port->D,
         port->H, port->W, port->pitch, port->dram_format);
  printf("\tdata_format: (%u, %u, %d, %u)", port->sign, port->datasize, port->expoffset,
         port->expbits);
  printf("\tport rotate bit (p, d, v, h, r): (%u, %u, %u, %u, %u)", bit(port, MORVANE_PORT_PFLIP),
         bit(port, MORVANE_PORT_DFLIP), bit(port, MORVANE_PORT_VFLIP),
         bit(port, MORVANE_PORT_HFLIP), bit(port, MORVANE_PORT_DROTATE));
  printf("\tport rotate offset(p, d, v, h, r): (%u, %u, %u, %u, %u)", port->pflip_bit_offset,
         port->dflip_bit_offset, port->vflip_bit_offset, port->hflip_bit_offset,
         port->drotate_bit_offset);
  printf("\tport_name: %s\t", TEXT(port->port_name));
  if (*TEXT(port->layer_name) != '\0') {
    printf("(layer_name: %s)", port->layer_name);
  }
  printf("\n");
}

static void load_ports(struct rest* package, const char* direction, uint32_t count) {
  const unsigned char* ports = take(package, count, sizeof(struct morvane_port_desc));
  for (uint32_t id = 0; id < count; ++id) {
    struct morvane_port_desc port;
    RECORD(ports, id, port);
    print_port(direction, id, &port);
  }
}

static void save_image(const char* folder, const char* name, const unsigned char* image,
                       uint32_t size) {
  char path[4096];
  FILE* file = NULL;
  if (strchr(name, '/') != NULL) {
    refuse("a DAG name is no file name");
  }
  if ((size_t)snprintf(path, sizeof path, "%s/%s.dvi", folder, name) < sizeof path) {
    file = fopen(path, "wb");
  }
  if (file == NULL || fwrite(image, 1, size, file) != size || fclose(file) != 0) {
    refuse("an image cannot be saved");
  }
}

static void load_dvi_block(struct rest* package, const struct morvane_dvi_desc* dvi,
                           const char* folder) {
  const struct rest block = *package;
  const unsigned char* image = NULL;
  printf("dvi_id: %u dag_name: %s input_num: %u output_num: %u\n", dvi->dvi_id, TEXT(dvi->dag_name),
         dvi->input_num, dvi->output_num);
  load_ports(package, "input", dvi->input_num);
  load_ports(package, "output", dvi->output_num);
  printf("\n");
  image = take(package, dvi->dvi_img_size, 1);
  if ((uint32_t)(block.length - package->length) != dvi->dvi_pkg_size) {
    refuse("a block is not as long as its DVI says");
  }
  if (folder != NULL) {
    save_image(folder, dvi->dag_name, image, dvi->dvi_img_size);
  }
}

static void load_vproc_block(struct rest* package, const struct morvane_dvi_desc* dvi,
                             const struct morvane_vproc_desc* vproc) {
  const struct rest block = *package;
  const unsigned char* variables =
      take(package, vproc->variable_num, sizeof(struct morvane_var_desc));
  const unsigned char* smbs = take(package, vproc->smb_num, sizeof(struct morvane_smb_desc));
  if ((uint32_t)(block.length - package->length) != vproc->vproc_records_size) {
    refuse("a block is not as long as its vproc says");
  }
  printf("vproc_id: %u dag_name: %s variable_num: %u smb_num: %u\n\n", dvi->vproc_id,
         TEXT(dvi->dag_name), vproc->variable_num, vproc->smb_num);
  for (uint32_t i = 0; i < vproc->variable_num; ++i) {
    struct morvane_var_desc variable;
    RECORD(variables, i, variable);
    printf("var: %s\t boffset = %u\t bsize = %u\n", TEXT(variable.var), variable.boffset,
           variable.bsize);
  }
  printf("\n");
  for (uint32_t i = 0; i < vproc->smb_num; ++i) {
    struct morvane_smb_desc smb;
    RECORD(smbs, i, smb);
    printf("smb_id: %u\t vbase_byte_offset: %u\t smb_name: %s\n", i, smb.vbase_byte_offset,
           TEXT(smb.smb_name));
  }
  printf("\n");
}

static void load_package(struct rest package, const char* folder) {
  struct morvane_pkg_header header;
  struct morvane_dvi_desc dvi;
  struct morvane_vproc_desc vproc;
  RECORD(take(&package, 1, sizeof header), 0, header);
  if (header.version != KNOWN_VERSION) {
    refuse("the version is unknown");
  }
  printf("version %u.%u.%u ( HASH %07x ) dvi_num: %u\n\n", header.version >> 24,
         header.version >> 16 & 0xFF, header.version & 0xFFFF, header.HASH, header.dvi_num);
  const unsigned char* dvis = take(&package, header.dvi_num, sizeof dvi);
  for (uint32_t i = 0; i < header.dvi_num; ++i) {
    RECORD(dvis, i, dvi);
    printf("dvi_id: %u\t dvi_img_vaddr: %u\t dvi_img_size: %u\t dvi_dag_vaddr: %u", dvi.dvi_id,
           dvi.dvi_img_vaddr, dvi.dvi_img_size, dvi.dvi_dag_vaddr);
    printf("\t input_num: %u\t output_num: %u\t dvi_pkg_size: %u\t dvi_ppv: %u", dvi.input_num,
           dvi.output_num, dvi.dvi_pkg_size, dvi.dvi_ppv);
    printf("\t vproc_id: %u\t dag_name: %s\n", dvi.vproc_id, TEXT(dvi.dag_name));
  }
  printf("\n");
  for (uint32_t i = 0; i < header.dvi_num; ++i) {
    RECORD(dvis, i, dvi);
    load_dvi_block(&package, &dvi, folder);
  }
  /* Bytes after the DVI blocks are the vproc section. */
  const uint32_t vproc_num = package.length != 0 ? header.dvi_num : 0;
  const unsigned char* vprocs = take(&package, vproc_num, sizeof vproc);
  for (uint32_t i = 0; i < vproc_num; ++i) {
    RECORD(dvis, i, dvi);
    RECORD(vprocs, i, vproc);
    load_vproc_block(&package, &dvi, &vproc);
  }
  if (package.length != 0) {
    refuse("the package goes on after its last record");
  }
}

/* Reads a whole file into memory, which is kept until the end of the program. */
static struct rest read_file(const char* path) {
  static unsigned char* bytes;
  struct rest content = {NULL, 0};
  FILE* file = fopen(path, "rb");
  long length = -1;
  if (file != NULL && fseek(file, 0, SEEK_END) == 0) {
    length = ftell(file);
  }
  if (length < 0 || fseek(file, 0, SEEK_SET) != 0) {
    refuse("the package cannot be read");
  }
  bytes = malloc((size_t)length + 1);
  if (bytes == NULL || fread(bytes, 1, (size_t)length, file) != (size_t)length) {
    refuse("the package cannot be read");
  }
  fclose(file);
  content.bytes = bytes;
  content.length = (size_t)length;
  return content;
}

int main(int argc, char** argv) {
  if (argc < 2 || argc > 3) {
    refuse("usage: loader PACKAGE [FOLDER]");
  }
  load_package(read_file(argv[1]), argc == 3 ? argv[2] : NULL);
  return 0;
}
