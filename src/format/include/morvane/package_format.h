/*
 * The records of a morvane_gen package, for programs that write or load one.
 *
 * Plain C99 and C++. All integers are little-endian. There is no padding, neither inside a record
 * nor between records. On a little-endian host, a record in the file has the same bytes as in
 * memory. Records in a file are not aligned: copy the bytes of one with memcpy before you use it.
 * Widths and offsets are in bytes.
 *
 *     +-------------------------------+  0
 *     | pkg_header                    |  12
 *     +-------------------------------+  12
 *     | dvi_desc x dvi_num            |  156 each
 *     +-------------------------------+  12 + 156 * dvi_num
 *     | DVI block x dvi_num           |  dvi_pkg_size each:
 *     |   port_desc x input_num       |    1080 each
 *     |   port_desc x output_num      |    1080 each
 *     |   image                       |    dvi_img_size
 *     +-------------------------------+  only in a package with a vproc section:
 *     | vproc_desc x dvi_num          |  12 each
 *     +-------------------------------+
 *     | vproc block x dvi_num         |  vproc_records_size each:
 *     |   var_desc x variable_num     |    136 each
 *     |   smb_desc x smb_num          |    132 each
 *     +-------------------------------+
 *
 * The file has no magic number, checksum or end mark: check every count against its length. Bytes
 * after the DVI blocks are the vproc section.
 */
#ifndef MORVANE_PACKAGE_FORMAT_H
#define MORVANE_PACKAGE_FORMAT_H

/* NOLINTBEGIN(*-avoid-c-arrays,*-macro-usage,modernize-*): C99 has nothing else. */
#include <stddef.h>
#include <stdint.h>

enum {
  MORVANE_NAME_WIDTH = 128,   /* DAG, variable and SMB names: at most 127 characters and a NUL */
  MORVANE_IO_NAME_WIDTH = 512 /* port and layer names: at most 511 characters and a NUL */
};

/*
 * The file's first record.
 *
 *      0       4       8       12
 *     +-------+-------+-------+
 *     |version| HASH  |dvi_num|
 *     +-------+-------+-------+
 */
struct morvane_pkg_header {
  uint32_t version; /* of the tool: major in bits 31..24, minor in 23..16, patch in 15..0 */
  uint32_t HASH;    /* source revision of the tool: the hexadecimal digits, read as a number */
  uint32_t dvi_num; /* number of DVIs in the file */
};

/*
 * One DVI: a compiled DAG image with its ports.
 *
 *      0   1   2   3   4       8       12      16      20      24      28                156
 *     +---+---+---+---+-------+-------+-------+-------+-------+-------+-----------------+
 *     |id |vp |ppv| 0 |vaddr  |size   |dag    |inputs |outputs|block  | dag_name        |
 *     +---+---+---+---+-------+-------+-------+-------+-------+-------+-----------------+
 */
struct morvane_dvi_desc {
  uint8_t dvi_id;         /* low byte of the file index, a number in the file's name */
  uint8_t vproc_id;       /* low byte of the position in the package, from 0 */
  uint8_t dvi_ppv;        /* use of ping-pong vector memory */
  uint8_t reserved;       /* 0 */
  uint32_t dvi_img_vaddr; /* address of the image on the target; not a file offset */
  uint32_t dvi_img_size;  /* size of the image in the DVI's block */
  uint32_t dvi_dag_vaddr; /* address of the DAG binary on the target; not a file offset */
  uint32_t input_num;     /* number of input ports in the DVI's block */
  uint32_t output_num;    /* number of output ports in the DVI's block */
  uint32_t dvi_pkg_size;  /* size of the DVI's block, modulo 2^32 */
  char dag_name[MORVANE_NAME_WIDTH]; /* name of the DAG: UTF-8, not checked, as all names */
};

/* The bits of morvane_port_desc.flags. Bits 6 and 7 are 0. */
enum {
  MORVANE_PORT_BITVECTOR = 1 << 0,
  MORVANE_PORT_DROTATE = 1 << 1,
  MORVANE_PORT_HFLIP = 1 << 2,
  MORVANE_PORT_VFLIP = 1 << 3,
  MORVANE_PORT_DFLIP = 1 << 4,
  MORVANE_PORT_PFLIP = 1 << 5
};

/*
 * One HMB port of a DVI.
 *
 *      0       4       8       12      16      20  21  22      24
 *     +-------+-------+-------+-------+-------+---+---+-------+
 *     | P     | D     | H     | W     | pitch |fmt|flg| 0   0 |
 *     +-------+-------+-------+-------+-------+---+---+-------+
 *      24      28      32      36      40      44  45  46  47  48      52      56
 *     +-------+-------+-------+-------+-------+---+---+---+---+-------+-------+
 *     |drotate|hflip  |vflip  |dflip  |pflip  |sgn|siz|exo|exb| size  |offset |
 *     +-------+-------+-------+-------+-------+---+---+---+---+-------+-------+
 *      56                              568                             1080
 *     +-------------------------------+-------------------------------+
 *     | port_name                     | layer_name                    |
 *     +-------------------------------+-------------------------------+
 */
struct morvane_port_desc {
  uint32_t P; /* the four dims */
  uint32_t D;
  uint32_t H;
  uint32_t W;
  uint32_t pitch;              /* pitch of D, in bytes */
  uint8_t dram_format;         /* the compiler's number for the format in DRAM */
  uint8_t flags;               /* MORVANE_PORT_... */
  uint8_t reserved[2];         /* 0 */
  uint32_t drotate_bit_offset; /* the bit offsets of the five flags */
  uint32_t hflip_bit_offset;
  uint32_t vflip_bit_offset;
  uint32_t dflip_bit_offset;
  uint32_t pflip_bit_offset;
  uint8_t sign;                           /* data format: sign; 255 when not given */
  uint8_t datasize;                       /* data size; 255 when not given */
  int8_t expoffset;                       /* exponent offset; -1 when not given */
  uint8_t expbits;                        /* exponent bits; 255 when not given */
  uint32_t port_size;                     /* size of the port in DRAM, in bytes */
  uint32_t port_byte_offset;              /* offset of the port's base, in bytes */
  char port_name[MORVANE_IO_NAME_WIDTH];  /* name of the port */
  char layer_name[MORVANE_IO_NAME_WIDTH]; /* demangled name of the layer; empty when not given */
};

/*
 * How many vproc records belong to the DVI at the same position in the DVI table.
 *
 *      0        4       8       12
 *     +--------+-------+-------+
 *     |vars    | SMBs  | size  |
 *     +--------+-------+-------+
 */
struct morvane_vproc_desc {
  uint32_t variable_num;       /* number of variables in the vproc block */
  uint32_t smb_num;            /* number of SMB blocks in the vproc block */
  uint32_t vproc_records_size; /* size of the vproc block, modulo 2^32 */
};

/*
 * One self-defined variable.
 *
 *      0                 128     132     136
 *     +-----------------+-------+-------+
 *     | var             |boffset| bsize |
 *     +-----------------+-------+-------+
 */
struct morvane_var_desc {
  char var[MORVANE_NAME_WIDTH]; /* name of the variable */
  uint32_t boffset;             /* offset, in bits */
  uint32_t bsize;               /* size, in bits */
};

/*
 * One SMB input block.
 *
 *      0                 128     132
 *     +-----------------+-------+
 *     | smb_name        |offset |
 *     +-----------------+-------+
 */
struct morvane_smb_desc {
  char smb_name[MORVANE_NAME_WIDTH]; /* name of the SMB block */
  uint32_t vbase_byte_offset;        /* offset, in bytes */
};

/* C99 has no static assertion. An array of -1 elements stops the compiler in the same way. */
#define MORVANE_SIZE_IS(record, width) \
  typedef char record##_is_##width##_bytes[sizeof(struct record) == (width) ? 1 : -1]
#define MORVANE_STANDS_AT(record, field, offset) \
  typedef char                                   \
      record##_##field##_is_at_##offset[offsetof(struct record, field) == (offset) ? 1 : -1]

MORVANE_SIZE_IS(morvane_pkg_header, 12);
MORVANE_STANDS_AT(morvane_pkg_header, version, 0);
MORVANE_STANDS_AT(morvane_pkg_header, HASH, 4);
MORVANE_STANDS_AT(morvane_pkg_header, dvi_num, 8);

MORVANE_SIZE_IS(morvane_dvi_desc, 156);
MORVANE_STANDS_AT(morvane_dvi_desc, dvi_id, 0);
MORVANE_STANDS_AT(morvane_dvi_desc, vproc_id, 1);
MORVANE_STANDS_AT(morvane_dvi_desc, dvi_ppv, 2);
MORVANE_STANDS_AT(morvane_dvi_desc, reserved, 3);
MORVANE_STANDS_AT(morvane_dvi_desc, dvi_img_vaddr, 4);
MORVANE_STANDS_AT(morvane_dvi_desc, dvi_img_size, 8);
MORVANE_STANDS_AT(morvane_dvi_desc, dvi_dag_vaddr, 12);
MORVANE_STANDS_AT(morvane_dvi_desc, input_num, 16);
MORVANE_STANDS_AT(morvane_dvi_desc, output_num, 20);
MORVANE_STANDS_AT(morvane_dvi_desc, dvi_pkg_size, 24);
MORVANE_STANDS_AT(morvane_dvi_desc, dag_name, 28);

MORVANE_SIZE_IS(morvane_port_desc, 1080);
MORVANE_STANDS_AT(morvane_port_desc, P, 0);
MORVANE_STANDS_AT(morvane_port_desc, D, 4);
MORVANE_STANDS_AT(morvane_port_desc, H, 8);
MORVANE_STANDS_AT(morvane_port_desc, W, 12);
MORVANE_STANDS_AT(morvane_port_desc, pitch, 16);
MORVANE_STANDS_AT(morvane_port_desc, dram_format, 20);
MORVANE_STANDS_AT(morvane_port_desc, flags, 21);
MORVANE_STANDS_AT(morvane_port_desc, reserved, 22);
MORVANE_STANDS_AT(morvane_port_desc, drotate_bit_offset, 24);
MORVANE_STANDS_AT(morvane_port_desc, hflip_bit_offset, 28);
MORVANE_STANDS_AT(morvane_port_desc, vflip_bit_offset, 32);
MORVANE_STANDS_AT(morvane_port_desc, dflip_bit_offset, 36);
MORVANE_STANDS_AT(morvane_port_desc, pflip_bit_offset, 40);
MORVANE_STANDS_AT(morvane_port_desc, sign, 44);
MORVANE_STANDS_AT(morvane_port_desc, datasize, 45);
MORVANE_STANDS_AT(morvane_port_desc, expoffset, 46);
MORVANE_STANDS_AT(morvane_port_desc, expbits, 47);
MORVANE_STANDS_AT(morvane_port_desc, port_size, 48);
MORVANE_STANDS_AT(morvane_port_desc, port_byte_offset, 52);
MORVANE_STANDS_AT(morvane_port_desc, port_name, 56);
MORVANE_STANDS_AT(morvane_port_desc, layer_name, 568);

MORVANE_SIZE_IS(morvane_vproc_desc, 12);
MORVANE_STANDS_AT(morvane_vproc_desc, variable_num, 0);
MORVANE_STANDS_AT(morvane_vproc_desc, smb_num, 4);
MORVANE_STANDS_AT(morvane_vproc_desc, vproc_records_size, 8);

MORVANE_SIZE_IS(morvane_var_desc, 136);
MORVANE_STANDS_AT(morvane_var_desc, var, 0);
MORVANE_STANDS_AT(morvane_var_desc, boffset, 128);
MORVANE_STANDS_AT(morvane_var_desc, bsize, 132);

MORVANE_SIZE_IS(morvane_smb_desc, 132);
MORVANE_STANDS_AT(morvane_smb_desc, smb_name, 0);
MORVANE_STANDS_AT(morvane_smb_desc, vbase_byte_offset, 128);

#undef MORVANE_SIZE_IS
#undef MORVANE_STANDS_AT
/* NOLINTEND(*-avoid-c-arrays,*-macro-usage,modernize-*) */

#endif
