/* Prints a package with one DVI as the hex dump in the document of the format, a line per field. */
#include <morvane/package_format.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum kind { VERSION, WORD, HEX, BYTE, SIGNED, FLAGS, TEXT, ZERO };

struct field {
  const char* name;
  size_t offset, width;
  enum kind kind;
};

#define FIELD(record, name, kind) \
  { #name, offsetof(struct record, name), sizeof(((struct record*)0)->name), kind }

static const struct field pkg_header[] = {FIELD(morvane_pkg_header, version, VERSION),
                                          FIELD(morvane_pkg_header, HASH, HEX),
                                          FIELD(morvane_pkg_header, dvi_num, WORD)};

static const struct field dvi_desc[] = {
    FIELD(morvane_dvi_desc, dvi_id, BYTE),       FIELD(morvane_dvi_desc, vproc_id, BYTE),
    FIELD(morvane_dvi_desc, dvi_ppv, BYTE),      FIELD(morvane_dvi_desc, reserved, ZERO),
    FIELD(morvane_dvi_desc, dvi_img_vaddr, HEX), FIELD(morvane_dvi_desc, dvi_img_size, WORD),
    FIELD(morvane_dvi_desc, dvi_dag_vaddr, HEX), FIELD(morvane_dvi_desc, input_num, WORD),
    FIELD(morvane_dvi_desc, output_num, WORD),   FIELD(morvane_dvi_desc, dvi_pkg_size, WORD),
    FIELD(morvane_dvi_desc, dag_name, TEXT)};

static const struct field port_desc[] = {FIELD(morvane_port_desc, P, WORD),
                                         FIELD(morvane_port_desc, D, WORD),
                                         FIELD(morvane_port_desc, H, WORD),
                                         FIELD(morvane_port_desc, W, WORD),
                                         FIELD(morvane_port_desc, pitch, WORD),
                                         FIELD(morvane_port_desc, dram_format, BYTE),
                                         FIELD(morvane_port_desc, flags, FLAGS),
                                         FIELD(morvane_port_desc, reserved, ZERO),
                                         FIELD(morvane_port_desc, drotate_bit_offset, WORD),
                                         FIELD(morvane_port_desc, hflip_bit_offset, WORD),
                                         FIELD(morvane_port_desc, vflip_bit_offset, WORD),
                                         FIELD(morvane_port_desc, dflip_bit_offset, WORD),
                                         FIELD(morvane_port_desc, pflip_bit_offset, WORD),
                                         FIELD(morvane_port_desc, sign, BYTE),
                                         FIELD(morvane_port_desc, datasize, BYTE),
                                         FIELD(morvane_port_desc, expoffset, SIGNED),
                                         FIELD(morvane_port_desc, expbits, BYTE),
                                         FIELD(morvane_port_desc, port_size, WORD),
                                         FIELD(morvane_port_desc, port_byte_offset, WORD),
                                         FIELD(morvane_port_desc, port_name, TEXT),
                                         FIELD(morvane_port_desc, layer_name, TEXT)};

static const struct field vproc_desc[] = {FIELD(morvane_vproc_desc, variable_num, WORD),
                                          FIELD(morvane_vproc_desc, smb_num, WORD),
                                          FIELD(morvane_vproc_desc, vproc_records_size, WORD)};

static const struct field var_desc[] = {FIELD(morvane_var_desc, var, TEXT),
                                        FIELD(morvane_var_desc, boffset, WORD),
                                        FIELD(morvane_var_desc, bsize, WORD)};

static const struct field smb_desc[] = {FIELD(morvane_smb_desc, smb_name, TEXT),
                                        FIELD(morvane_smb_desc, vbase_byte_offset, WORD)};

static unsigned char package[65536 + sizeof(uint32_t)];
static size_t length;
static size_t at; /* the first byte that is not printed yet */

/* Bytes in hexadecimal; zeros at the end of a long field as "00*number". */
static void print_bytes(size_t width) {
  size_t end = width;
  while (width > 16 && end > 0 && package[at + end - 1] == 0) {
    --end;
  }
  int column = printf("0x%04x  ", (unsigned)at);
  for (size_t i = 0; i < end; ++i) {
    column += printf("%02x ", package[at + i]);
  }
  if (end < width) {
    column += printf("00*%u", (unsigned)(width - end));
  }
  printf("%*s", column < 58 ? 58 - column : 1, "");
}

static void print_flags(unsigned flags) {
  static const char* const names[] = {"bitvector", "drotate", "hflip", "vflip", "dflip", "pflip"};
  printf("0x%02x", flags);
  for (unsigned bit = 0; bit < 6; ++bit) {
    if ((flags >> bit & 1) != 0) {
      printf(" %s", names[bit]);
    }
  }
}

static void print_value(enum kind kind) {
  uint32_t word;
  memcpy(&word, package + at, sizeof word);
  switch (kind) {
    case VERSION:
      printf("%u.%u.%u", word >> 24, word >> 16 & 0xFF, word & 0xFFFF);
      break;
    case WORD:
      printf("%u", word);
      break;
    case HEX:
      printf("0x%08x", word);
      break;
    case BYTE:
      printf("%u", package[at]);
      break;
    case SIGNED:
      printf("%d", (int8_t)package[at]);
      break;
    case FLAGS:
      print_flags(package[at]);
      break;
    case TEXT:
      printf("\"%s\"", (const char*)package + at);
      break;
    case ZERO:
      printf("0");
      break;
  }
}

static void need(size_t width) {
  if (width > length - at) {
    fprintf(stderr, "annotated_dump: the package ends early\n");
    exit(1);
  }
}

static void print_record(const char* title, const struct field* fields, size_t count,
                         size_t width) {
  const size_t begin = at;
  need(width);
  printf("%s, %u bytes\n", title, (unsigned)width);
  for (size_t i = 0; i < count; ++i) {
    at = begin + fields[i].offset;
    print_bytes(fields[i].width);
    printf("%-18s  ", fields[i].name);
    print_value(fields[i].kind);
    printf("\n");
  }
  at = begin + width;
}

#define PRINT_RECORD(title, record) \
  print_record(title, record, sizeof record / sizeof record[0], sizeof(struct morvane_##record))

int main(int argc, char** argv) {
  FILE* file = argc == 2 ? fopen(argv[1], "rb") : NULL;
  struct morvane_dvi_desc dvi;
  if (file == NULL) {
    return 1;
  }
  length = fread(package, 1, 65536, file);
  fclose(file);
  PRINT_RECORD("pkg_header", pkg_header);
  need(sizeof dvi);
  memcpy(&dvi, package + at, sizeof dvi);
  PRINT_RECORD("dvi_desc of DVI 0", dvi_desc);
  PRINT_RECORD("port_desc of its input 0", port_desc);
  PRINT_RECORD("port_desc of its output 0", port_desc);
  need(dvi.dvi_img_size);
  printf("image of DVI 0, %u bytes\n", dvi.dvi_img_size);
  print_bytes(dvi.dvi_img_size);
  printf("%-18s  \"%.*s\"\n", "image", (int)dvi.dvi_img_size, (const char*)package + at);
  at += dvi.dvi_img_size;
  PRINT_RECORD("vproc_desc of DVI 0", vproc_desc);
  PRINT_RECORD("var_desc of its variable 0", var_desc);
  PRINT_RECORD("smb_desc of its SMB 0", smb_desc);
  printf("0x%04x  end of file\n", (unsigned)at);
  return at == length ? 0 : 1;
}
