/*
 * Reads a morvane_gen package that lies in memory: mapped from a file, or in flash.
 *
 * Plain C99 and C++. Nothing is copied, allocated or printed, and no function of a library is
 * called. The host's byte order and alignment do not matter. No content of a package makes a
 * function read outside of it.
 *
 *     struct morvane_view view;
 *     struct morvane_view_dvi dvi;
 *     int status = morvane_view_open(&view, bytes, size, NULL);
 *     if (status == MORVANE_VIEW_OK) {
 *       status = morvane_view_first(&view, &dvi);
 *       while (status == MORVANE_VIEW_OK) {
 *         ... dvi.dag_name, morvane_view_input(&view, &dvi, 0, &port), ...
 *         status = morvane_view_next(&view, &dvi);
 *       }
 *     }
 *
 * What a function hands out points into the package, so the package must stay as it is for as long
 * as the view, or anything taken from it, is in use. Offsets are counted from the start of the
 * package. All offsets, widths and sizes are in bytes.
 *
 * Fields have the names that they have in package_format.h; numbers of one byte are widened.
 *
 * Every function returns MORVANE_VIEW_OK, which is 0, or a negative status, unless its comment says
 * otherwise. After a negative status the out parameters are as they were, unless its comment says
 * otherwise. Out parameters must lie outside the package. No pointer may be NULL unless said
 * otherwise.
 */
#ifndef MORVANE_PACKAGE_VIEW_H
#define MORVANE_PACKAGE_VIEW_H

/* NOLINTBEGIN(*-avoid-c-arrays,*-macro-usage,modernize-*): C99 has nothing else. */
#include <morvane/package_format.h>
#include <stddef.h>
#include <stdint.h>

/* The version of this library. The major number changes when a program must be changed for it. */
#define MORVANE_VIEW_VERSION_MAJOR 1
#define MORVANE_VIEW_VERSION_MINOR 0
#define MORVANE_VIEW_VERSION_PATCH 0

#ifdef __cplusplus
extern "C" {
#endif

/* What a function returns. A part is cut when the package ends before the part does. */
enum morvane_view_status {
  MORVANE_VIEW_OK = 0,
  MORVANE_VIEW_HEADER_CUT = -1,
  MORVANE_VIEW_DVI_TABLE_CUT = -2,
  MORVANE_VIEW_BLOCK_SIZE_DISAGREES = -3, /* dvi_pkg_size with the counts of its DVI */
  MORVANE_VIEW_PORTS_CUT = -4,
  MORVANE_VIEW_IMAGE_CUT = -5,
  MORVANE_VIEW_VPROC_TABLE_CUT = -6,
  MORVANE_VIEW_VPROC_SIZE_DISAGREES = -7, /* vproc_records_size with the counts of its vproc */
  MORVANE_VIEW_VARIABLES_CUT = -8,
  MORVANE_VIEW_SMBS_CUT = -9,
  MORVANE_VIEW_BYTES_LEFT_OVER = -10, /* the package goes on after its last record */
  MORVANE_VIEW_NO_VPROC = -11,        /* the package has no vproc section */
  MORVANE_VIEW_OUT_OF_RANGE = -12,    /* there is nothing at that position */
  MORVANE_VIEW_NOT_FOUND = -13        /* no DVI has that name */
};

/* A short text in English for a status, "unknown status" for any other number. */
const char* morvane_view_status_text(int status);

/* Where opening stopped, and the two numbers that do not fit together. */
struct morvane_view_damage {
  int status;       /* what opening returned */
  uint32_t dvi;     /* position of the DVI that the damage belongs to; 0 if it belongs to none */
  size_t offset;    /* where the damaged part begins; the size field when a size disagrees */
  uint64_t claimed; /* bytes that the part is said to have; 0 when bytes are left over */
  uint64_t present; /* bytes left from offset on; the bytes counted when a size disagrees */
};

/* An opened package. You may read its members. */
struct morvane_view {
  const uint8_t* bytes; /* the package */
  size_t size;
  uint32_t version; /* as in morvane_pkg_header */
  uint32_t HASH;
  uint32_t dvi_num;
  uint32_t sound_dvis; /* DVIs, from the first on, whose blocks are whole: dvi_num without damage */
  size_t vproc_table;  /* offset of the vproc table; 0 without a whole one behind whole DVIs */
  uint32_t sound_vprocs; /* vprocs, from the first on, whose blocks are whole */
};

/* A text inside the package, without a NUL at its end. It ends before the first NUL of its field,
 * or with the field when that has none. */
struct morvane_text {
  const char* bytes;
  size_t length;
};

/* Bytes inside the package. */
struct morvane_bytes {
  const uint8_t* bytes;
  size_t size;
};

/* A DVI: a position of the walk over all DVIs, and the fields of its records. */
struct morvane_view_dvi {
  uint32_t position; /* in the package, from 0 */
  uint32_t dvi_id;   /* as in morvane_dvi_desc, up to dag_name */
  uint32_t vproc_id;
  uint32_t dvi_ppv;
  uint32_t reserved;
  uint32_t dvi_img_vaddr;
  uint32_t dvi_img_size;
  uint32_t dvi_dag_vaddr;
  uint32_t input_num;
  uint32_t output_num;
  uint32_t dvi_pkg_size;
  struct morvane_text dag_name;
  uint32_t variable_num; /* as in morvane_vproc_desc; 0 where the package has no sound vproc */
  uint32_t smb_num;
  uint32_t vproc_records_size;
  size_t offset;       /* of the dvi_desc */
  size_t block;        /* offset of the DVI block, which begins with the input ports */
  size_t vproc_offset; /* of the vproc_desc; 0 where the package has no sound vproc */
  size_t vproc_block;  /* offset of the vproc block; 0 where the package has no sound vproc */
};

/* A port, as in morvane_port_desc. */
struct morvane_view_port {
  uint32_t P;
  uint32_t D;
  uint32_t H;
  uint32_t W;
  uint32_t pitch;
  uint32_t dram_format;
  uint32_t flags; /* MORVANE_PORT_... */
  uint32_t reserved[2];
  uint32_t drotate_bit_offset;
  uint32_t hflip_bit_offset;
  uint32_t vflip_bit_offset;
  uint32_t dflip_bit_offset;
  uint32_t pflip_bit_offset;
  uint32_t sign;
  uint32_t datasize;
  int32_t expoffset;
  uint32_t expbits;
  uint32_t port_size;
  uint32_t port_byte_offset;
  struct morvane_text port_name;
  struct morvane_text layer_name;
  size_t offset; /* of the port_desc */
};

/* A self-defined variable, as in morvane_var_desc. */
struct morvane_view_var {
  struct morvane_text var;
  uint32_t boffset;
  uint32_t bsize;
  size_t offset; /* of the var_desc */
};

/* An SMB input block, as in morvane_smb_desc. */
struct morvane_view_smb_block {
  struct morvane_text smb_name;
  uint32_t vbase_byte_offset;
  size_t offset; /* of the smb_desc */
};

/* Opens a package of so many bytes. Checks every count and every size once, from the header to the
 * last byte, and reads no port, image, variable or SMB. A package without a byte after its last DVI
 * block has no vproc section; otherwise the section must fill the rest exactly.
 *
 * Returns the first damage, and describes it in damage, which may be NULL. The view is always set:
 * of a damaged package it reaches the DVIs and the vprocs before the damage. */
int morvane_view_open(struct morvane_view* view, const uint8_t* bytes, size_t size,
                      struct morvane_view_damage* damage);

/* MORVANE_VIEW_NO_VPROC when the package has no vproc section, or when damage hides it. One that
 * was written with the section and cut exactly before it has none either: ask, if you need it. */
int morvane_view_need_vproc(const struct morvane_view* view);

/* The first DVI. MORVANE_VIEW_OUT_OF_RANGE when there is none, MORVANE_VIEW_DVI_TABLE_CUT when the
 * package ends before it. Takes the same time for every package. */
int morvane_view_first(const struct morvane_view* view, struct morvane_view_dvi* dvi);

/* Steps from a DVI to the next one. MORVANE_VIEW_OUT_OF_RANGE after the last, where dvi stays.
 * Takes the same time for every package. */
int morvane_view_next(const struct morvane_view* view, struct morvane_view_dvi* dvi);

/* The first DVI whose dag_name is a C string. MORVANE_VIEW_NOT_FOUND when there is none,
 * MORVANE_VIEW_DVI_TABLE_CUT when the package ends before its first DVI. After an error dvi may
 * have changed. */
int morvane_view_find(const struct morvane_view* view, const char* dag_name,
                      struct morvane_view_dvi* dvi);

/* The input or output port at a position, from 0. MORVANE_VIEW_OUT_OF_RANGE when there is none. */
int morvane_view_input(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                       uint32_t index, struct morvane_view_port* port);
int morvane_view_output(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                        uint32_t index, struct morvane_view_port* port);

/* The image of a DVI. */
int morvane_view_image(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                       struct morvane_bytes* image);

/* The variable or SMB at a position, from 0. MORVANE_VIEW_OUT_OF_RANGE when there is none. */
int morvane_view_variable(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                          uint32_t index, struct morvane_view_var* variable);
int morvane_view_smb(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                     uint32_t index, struct morvane_view_smb_block* smb);

/* Returns 1 when a text has the characters of a C string and no more, otherwise 0. */
int morvane_text_equals(struct morvane_text text, const char* string);

#ifdef __cplusplus
}
#endif
/* NOLINTEND(*-avoid-c-arrays,*-macro-usage,modernize-*) */

#endif
