/*
 * The reader of packages.
 *
 * Sums and products of counts are computed in 64 bits, where those of 32-bit counts cannot
 * overflow, and compared with the bytes that are left. Only what was found to fit becomes an
 * offset.
 *
 * The comments that begin with an @ are contracts, in the language ACSL. scripts/prove.sh proves
 * that every function keeps its own, for every package. package_view.acsl, which only the proof
 * reads, explains their words and defines the predicates that they use.
 */
#include <morvane/package_view.h>

enum {
  HEADER_BYTES = sizeof(struct morvane_pkg_header),
  DVI_BYTES = sizeof(struct morvane_dvi_desc),
  PORT_BYTES = sizeof(struct morvane_port_desc),
  VPROC_BYTES = sizeof(struct morvane_vproc_desc),
  VAR_BYTES = sizeof(struct morvane_var_desc),
  SMB_BYTES = sizeof(struct morvane_smb_desc)
};

/* Sizes in records are modulo this. */
#define WRAP ((uint64_t)1 << 32)

/*@
  assigns \nothing;
*/
const char* morvane_view_status_text(int status) {
  switch (status) {
    case MORVANE_VIEW_OK:
      return "ok";
    case MORVANE_VIEW_HEADER_CUT:
      return "header cut";
    case MORVANE_VIEW_DVI_TABLE_CUT:
      return "DVI table cut";
    case MORVANE_VIEW_BLOCK_SIZE_DISAGREES:
      return "dvi_pkg_size disagrees with the counts";
    case MORVANE_VIEW_PORTS_CUT:
      return "ports cut";
    case MORVANE_VIEW_IMAGE_CUT:
      return "image cut";
    case MORVANE_VIEW_VPROC_TABLE_CUT:
      return "vproc table cut";
    case MORVANE_VIEW_VPROC_SIZE_DISAGREES:
      return "vproc_records_size disagrees with the counts";
    case MORVANE_VIEW_VARIABLES_CUT:
      return "variables cut";
    case MORVANE_VIEW_SMBS_CUT:
      return "SMBs cut";
    case MORVANE_VIEW_BYTES_LEFT_OVER:
      return "bytes left over";
    case MORVANE_VIEW_NO_VPROC:
      return "no vproc section";
    case MORVANE_VIEW_OUT_OF_RANGE:
      return "position out of range";
    case MORVANE_VIEW_NOT_FOUND:
      return "no DVI of that name";
    default:
      return "unknown status";
  }
}

/*@
  requires \valid_read(at + (0 .. 3));
  assigns \nothing;
  ensures \result == u32(at);
*/
static uint32_t word(const uint8_t* at) {
  uint32_t value = at[3];
  /*@ assert shifted(value, 8) == 256 * value; */
  value = (value << 8) + at[2];
  /*@ assert shifted(value, 8) == 256 * value; */
  value = (value << 8) + at[1];
  /*@ assert shifted(value, 8) == 256 * value; */
  return (value << 8) + at[0];
}

/* The signed number that a byte stands for. */
/*@
  assigns \nothing;
  ensures \result == (byte < 128 ? byte : byte - 256);
*/
static int32_t s8(uint8_t byte) {
  return byte < 128 ? byte : byte - 256;
}

/*@
  assigns \nothing;
  ensures \result == (input_num + output_num) * PORT_BYTES;
*/
static uint64_t port_bytes(uint32_t input_num, uint32_t output_num) {
  return ((uint64_t)input_num + output_num) * PORT_BYTES;
}

/*@
  assigns \nothing;
  ensures \result == variable_num * VAR_BYTES + smb_num * SMB_BYTES;
*/
static uint64_t vproc_bytes(uint32_t variable_num, uint32_t smb_num) {
  return (uint64_t)variable_num * VAR_BYTES + (uint64_t)smb_num * SMB_BYTES;
}

/* The sizes of the ports and of the block that a dvi_desc counts. */
/*@
  requires \valid_read(dvi + (0 .. DVI_BYTES - 1));
  assigns \nothing;
  ensures \result == ports_size(dvi);
*/
static uint64_t dvi_ports(const uint8_t* dvi) {
  return port_bytes(word(dvi + offsetof(struct morvane_dvi_desc, input_num)),
                    word(dvi + offsetof(struct morvane_dvi_desc, output_num)));
}

/*@
  requires \valid_read(dvi + (0 .. DVI_BYTES - 1));
  assigns \nothing;
  ensures \result == block_size(dvi);
*/
static uint64_t dvi_block(const uint8_t* dvi) {
  return dvi_ports(dvi) + word(dvi + offsetof(struct morvane_dvi_desc, dvi_img_size));
}

/* The sizes of the variables and of the block that a vproc_desc counts. */
/*@
  requires \valid_read(vproc + (0 .. VPROC_BYTES - 1));
  assigns \nothing;
  ensures \result == variables_size(vproc);
*/
static uint64_t vproc_variables(const uint8_t* vproc) {
  return vproc_bytes(word(vproc + offsetof(struct morvane_vproc_desc, variable_num)), 0);
}

/*@
  requires \valid_read(vproc + (0 .. VPROC_BYTES - 1));
  assigns \nothing;
  ensures \result == vproc_size(vproc);
*/
static uint64_t vproc_block(const uint8_t* vproc) {
  return vproc_bytes(word(vproc + offsetof(struct morvane_vproc_desc, variable_num)),
                     word(vproc + offsetof(struct morvane_vproc_desc, smb_num)));
}

/* Whether the view has so many bytes from begin + skipped on. */
/*@
  requires \valid_read(view);
  assigns \nothing;
  ensures \result != 0 <==> begin + skipped + bytes <= view->size;
*/
static int has(const struct morvane_view* view, size_t begin, uint64_t skipped, uint64_t bytes) {
  return begin <= view->size && skipped <= view->size - begin &&
         bytes <= view->size - begin - skipped;
}

/* Reads the header and finds out whether the DVI table fits. Sets *at to where the damage is. */
/*@
  requires true_view(view) && \valid(view) && \valid(at);
  requires \separated(view, at, view->bytes + (0 .. view->size - 1));
  assigns view->version, view->HASH, view->dvi_num, *at;
  behavior header_cut:
    assumes view->size < HEADER_BYTES;
    ensures *at == \old(*at);
    ensures \result == MORVANE_VIEW_HEADER_CUT;
  behavior header_fits:
    assumes HEADER_BYTES <= view->size;
    ensures view->version == u32(view->bytes) && view->HASH == u32(view->bytes + 4);
    ensures view->dvi_num == u32(view->bytes + 8);
    ensures *at == HEADER_BYTES;
    ensures \result == (HEADER_BYTES + view->dvi_num * DVI_BYTES <= view->size
                          ? MORVANE_VIEW_OK
                          : MORVANE_VIEW_DVI_TABLE_CUT);
  complete behaviors;
  disjoint behaviors;
*/
static int check_header(struct morvane_view* view, size_t* at) {
  const uint8_t* const header = view->bytes;
  const size_t size = view->size;
  uint32_t dvi_num = 0;
  if (size < HEADER_BYTES) {
    return MORVANE_VIEW_HEADER_CUT;
  }
  dvi_num = word(header + offsetof(struct morvane_pkg_header, dvi_num));
  view->version = word(header + offsetof(struct morvane_pkg_header, version));
  view->HASH = word(header + offsetof(struct morvane_pkg_header, HASH));
  view->dvi_num = dvi_num;
  *at = HEADER_BYTES;
  return (uint64_t)dvi_num * DVI_BYTES <= size - HEADER_BYTES ? MORVANE_VIEW_OK
                                                              : MORVANE_VIEW_DVI_TABLE_CUT;
}

/* Whether the block that a dvi_desc counts, of which so many bytes are left, is whole. */
/*@
  requires \valid_read(dvi + (0 .. DVI_BYTES - 1));
  assigns \nothing;
  ensures \result == dvi_status(dvi, left);
*/
static int check_dvi(const uint8_t* dvi, size_t left) {
  const uint64_t ports = dvi_ports(dvi);
  const uint64_t block = dvi_block(dvi);
  if (block % WRAP != word(dvi + offsetof(struct morvane_dvi_desc, dvi_pkg_size))) {
    return MORVANE_VIEW_BLOCK_SIZE_DISAGREES;
  }
  if (ports > left) {
    return MORVANE_VIEW_PORTS_CUT;
  }
  return block > left ? MORVANE_VIEW_IMAGE_CUT : MORVANE_VIEW_OK;
}

/* Checks all DVIs, whose table fits. Sets *at to where the block of the last sound one ends. */
/*@
  requires true_view(view) && \valid(view) && \valid(at);
  requires \separated(view, at, view->bytes + (0 .. view->size - 1));
  requires HEADER_BYTES + view->dvi_num * DVI_BYTES <= view->size;
  assigns view->sound_dvis, *at;
  ensures sound_blocks(view->bytes, view->size, view->dvi_num, view->sound_dvis);
  ensures *at == block_at(view->bytes, view->dvi_num, view->sound_dvis);
  ensures HEADER_BYTES <= *at <= view->size;
  ensures \result == MORVANE_VIEW_OK ==> view->sound_dvis == view->dvi_num;
  ensures \result != MORVANE_VIEW_OK ==> stopped_at_dvi(*view, \result, *at);
*/
static int check_dvis(struct morvane_view* view, size_t* at) {
  const uint8_t* const bytes = view->bytes;
  const size_t size = view->size;
  const uint32_t dvi_num = view->dvi_num;
  int status = MORVANE_VIEW_OK;
  size_t begin = HEADER_BYTES + (size_t)dvi_num * DVI_BYTES;
  uint32_t i = 0;
  /*@
    loop invariant 0 <= i <= dvi_num && status == MORVANE_VIEW_OK;
    loop invariant begin == block_at(bytes, dvi_num, i) && HEADER_BYTES <= begin <= size;
    loop invariant sound_blocks(bytes, size, dvi_num, i);
    loop assigns i, begin, status;
    loop variant dvi_num - i;
  */
  for (i = 0; i < dvi_num; ++i) {
    const uint8_t* const dvi = bytes + (HEADER_BYTES + (size_t)i * DVI_BYTES);
    /*@ assert dvi == dvi_desc(bytes, i); */
    status = check_dvi(dvi, size - begin);
    if (status != MORVANE_VIEW_OK) {
      break;
    }
    /*@ assert block_at(bytes, dvi_num, i + 1) == begin + block_size(dvi); */
    begin += (size_t)dvi_block(dvi);
  }
  view->sound_dvis = i;
  *at = begin;
  return status;
}

/* Whether the block that a vproc_desc counts, of which so many bytes are left, is whole. */
/*@
  requires \valid_read(vproc + (0 .. VPROC_BYTES - 1));
  assigns \nothing;
  ensures \result == vproc_status(vproc, left);
*/
static int check_vproc(const uint8_t* vproc, size_t left) {
  const uint64_t variables = vproc_variables(vproc);
  const uint64_t block = vproc_block(vproc);
  if (block % WRAP != word(vproc + offsetof(struct morvane_vproc_desc, vproc_records_size))) {
    return MORVANE_VIEW_VPROC_SIZE_DISAGREES;
  }
  if (variables > left) {
    return MORVANE_VIEW_VARIABLES_CUT;
  }
  return block > left ? MORVANE_VIEW_SMBS_CUT : MORVANE_VIEW_OK;
}

/* Checks all vprocs, whose table fits. Sets *at to where the block of the last sound one ends. */
/*@
  requires true_view(view) && \valid(view) && \valid(at);
  requires \separated(view, at, view->bytes + (0 .. view->size - 1));
  requires view->vproc_table + view->dvi_num * VPROC_BYTES <= view->size;
  assigns view->sound_vprocs, *at;
  ensures sound_vprocs(view->bytes, view->size, view->dvi_num, view->vproc_table,
                       view->sound_vprocs);
  ensures *at <= view->size &&
    *at == vproc_at(view->bytes, view->dvi_num, view->vproc_table, view->sound_vprocs);
  ensures \result == MORVANE_VIEW_OK ==> view->sound_vprocs == view->dvi_num;
  ensures \result != MORVANE_VIEW_OK ==> stopped_at_vproc(*view, \result, *at);
*/
static int check_vprocs(struct morvane_view* view, size_t* at) {
  const uint8_t* const bytes = view->bytes;
  const size_t size = view->size;
  const uint32_t dvi_num = view->dvi_num;
  const size_t table = view->vproc_table;
  int status = MORVANE_VIEW_OK;
  size_t begin = table + (size_t)dvi_num * VPROC_BYTES;
  uint32_t i = 0;
  /*@
    loop invariant 0 <= i <= dvi_num && status == MORVANE_VIEW_OK;
    loop invariant begin == vproc_at(bytes, dvi_num, table, i) && begin <= size;
    loop invariant sound_vprocs(bytes, size, dvi_num, table, i);
    loop assigns i, begin, status;
    loop variant dvi_num - i;
  */
  for (i = 0; i < dvi_num; ++i) {
    const uint8_t* const vproc = bytes + (table + (size_t)i * VPROC_BYTES);
    /*@ assert vproc == vproc_desc(bytes, table, i); */
    status = check_vproc(vproc, size - begin);
    if (status != MORVANE_VIEW_OK) {
      break;
    }
    /*@ assert vproc_at(bytes, dvi_num, table, i + 1) == begin + vproc_size(vproc); */
    begin += (size_t)vproc_block(vproc);
  }
  view->sound_vprocs = i;
  *at = begin;
  return status;
}

/* Checks the vproc section, which begins at *at. Sets *at to where its last sound block ends. */
/*@
  requires true_view(view) && \valid(view) && \valid(at);
  requires \separated(view, at, view->bytes + (0 .. view->size - 1));
  requires *at <= view->size;
  assigns view->vproc_table, view->sound_vprocs, *at;
  behavior table_cut:
    assumes *at + view->dvi_num * VPROC_BYTES > view->size;
    ensures view->vproc_table == \old(view->vproc_table);
    ensures view->sound_vprocs == \old(view->sound_vprocs);
    ensures *at == \old(*at);
    ensures \result == MORVANE_VIEW_VPROC_TABLE_CUT;
  behavior table_fits:
    assumes *at + view->dvi_num * VPROC_BYTES <= view->size;
    ensures view->vproc_table == \old(*at);
    ensures sound_vprocs(view->bytes, view->size, view->dvi_num, view->vproc_table,
                         view->sound_vprocs);
    ensures *at <= view->size &&
      *at == vproc_at(view->bytes, view->dvi_num, view->vproc_table, view->sound_vprocs);
    ensures \result == MORVANE_VIEW_OK ==> view->sound_vprocs == view->dvi_num;
    ensures \result != MORVANE_VIEW_OK ==> stopped_at_vproc(*view, \result, *at);
  complete behaviors;
  disjoint behaviors;
*/
static int check_vproc_section(struct morvane_view* view, size_t* at) {
  if ((uint64_t)view->dvi_num * VPROC_BYTES > view->size - *at) {
    return MORVANE_VIEW_VPROC_TABLE_CUT;
  }
  view->vproc_table = *at;
  return check_vprocs(view, at);
}

/* Checks everything. Sets *at to where the damage is. */
/*@
  requires true_view(view) && \valid(view) && \valid(at);
  requires \separated(view, at, view->bytes + (0 .. view->size - 1));
  requires *at == 0 && view->dvi_num == 0 && view->sound_dvis == 0;
  requires view->vproc_table == 0 && view->sound_vprocs == 0;
  assigns view->version, view->HASH, view->dvi_num, view->sound_dvis, view->vproc_table,
          view->sound_vprocs, *at;
  ensures MORVANE_VIEW_BYTES_LEFT_OVER <= \result <= MORVANE_VIEW_OK;
  ensures walked(*view);
  ensures \result == MORVANE_VIEW_OK ==> accepted(*view);
  ensures stopped(*view, \result, *at);
*/
static int check_package(struct morvane_view* view, size_t* at) {
  int status = check_header(view, at);
  if (status != MORVANE_VIEW_OK) {
    /*@ assert walked(*view) && stopped(*view, status, *at); */
    return status;
  }
  status = check_dvis(view, at);
  /*@ assert walked(*view); */
  if (status != MORVANE_VIEW_OK) {
    /*@ assert stopped(*view, status, *at); */
    return status;
  }
  if (*at < view->size && view->dvi_num > 0) {
    status = check_vproc_section(view, at);
    /*@ assert walked(*view); */
    if (status != MORVANE_VIEW_OK) {
      /*@ assert stopped(*view, status, *at); */
      return status;
    }
  }
  /*@ assert *at == view->size ==> accepted(*view); */
  /*@ assert *at < view->size ==> stopped(*view, MORVANE_VIEW_BYTES_LEFT_OVER, *at); */
  return *at < view->size ? MORVANE_VIEW_BYTES_LEFT_OVER : MORVANE_VIEW_OK;
}

/* Describes what check_dvis found. */
/*@
  requires true_view(view) && \valid(damage);
  requires \separated(damage, view, view->bytes + (0 .. view->size - 1));
  requires stopped_at_dvi(*view, damage->status, begin);
  assigns damage->dvi, damage->offset, damage->claimed, damage->present;
  ensures describes_dvi(\old(*view), damage);
*/
static void describe_dvi(const struct morvane_view* view, size_t begin,
                         struct morvane_view_damage* damage) {
  const uint32_t position = view->sound_dvis;
  const size_t desc = HEADER_BYTES + (size_t)position * DVI_BYTES;
  const uint8_t* const dvi = view->bytes + desc;
  /*@ assert dvi == dvi_desc(view->bytes, position); */
  const uint64_t ports = dvi_ports(dvi);
  size_t offset = begin;
  uint64_t claimed = ports;
  uint64_t present = view->size - begin;
  if (damage->status == MORVANE_VIEW_BLOCK_SIZE_DISAGREES) {
    offset = desc + offsetof(struct morvane_dvi_desc, dvi_pkg_size);
    claimed = word(dvi + offsetof(struct morvane_dvi_desc, dvi_pkg_size));
    present = dvi_block(dvi);
  } else if (damage->status == MORVANE_VIEW_IMAGE_CUT) {
    offset += (size_t)ports;
    claimed = word(dvi + offsetof(struct morvane_dvi_desc, dvi_img_size));
    present -= ports;
  }
  damage->dvi = position;
  damage->offset = offset;
  damage->claimed = claimed;
  damage->present = present;
}

/* Describes what check_vprocs found. */
/*@
  requires true_view(view) && \valid(damage);
  requires \separated(damage, view, view->bytes + (0 .. view->size - 1));
  requires stopped_at_vproc(*view, damage->status, begin);
  assigns damage->dvi, damage->offset, damage->claimed, damage->present;
  ensures describes_vproc(\old(*view), damage);
*/
static void describe_vproc(const struct morvane_view* view, size_t begin,
                           struct morvane_view_damage* damage) {
  const uint32_t position = view->sound_vprocs;
  const size_t desc = view->vproc_table + (size_t)position * VPROC_BYTES;
  const uint8_t* const vproc = view->bytes + desc;
  /*@ assert vproc == vproc_desc(view->bytes, view->vproc_table, position); */
  const uint64_t variables = vproc_variables(vproc);
  const uint64_t block = vproc_block(vproc);
  size_t offset = begin;
  uint64_t claimed = variables;
  uint64_t present = view->size - begin;
  if (damage->status == MORVANE_VIEW_VPROC_SIZE_DISAGREES) {
    offset = desc + offsetof(struct morvane_vproc_desc, vproc_records_size);
    claimed = word(vproc + offsetof(struct morvane_vproc_desc, vproc_records_size));
    present = block;
  } else if (damage->status == MORVANE_VIEW_SMBS_CUT) {
    offset += (size_t)variables;
    claimed = block - variables;
    present -= variables;
  }
  damage->dvi = position;
  damage->offset = offset;
  damage->claimed = claimed;
  damage->present = present;
}

/* Describes what check_package found, when that is not the block of a single DVI or vproc. */
/*@
  requires true_view(view) && \valid(damage);
  requires \separated(damage, view, view->bytes + (0 .. view->size - 1));
  requires damage->status == MORVANE_VIEW_HEADER_CUT ||
           damage->status == MORVANE_VIEW_DVI_TABLE_CUT ||
           damage->status == MORVANE_VIEW_VPROC_TABLE_CUT ||
           damage->status == MORVANE_VIEW_BYTES_LEFT_OVER;
  requires stopped(*view, damage->status, at);
  assigns damage->dvi, damage->offset, damage->claimed, damage->present;
  ensures describes_package(\old(*view), damage);
*/
static void describe_package(const struct morvane_view* view, size_t at,
                             struct morvane_view_damage* damage) {
  const uint64_t dvi_num = view->dvi_num;
  uint64_t claimed = 0;
  if (damage->status == MORVANE_VIEW_HEADER_CUT) {
    claimed = HEADER_BYTES;
  } else if (damage->status == MORVANE_VIEW_DVI_TABLE_CUT) {
    claimed = dvi_num * DVI_BYTES;
  } else if (damage->status == MORVANE_VIEW_VPROC_TABLE_CUT) {
    claimed = dvi_num * VPROC_BYTES;
  }
  damage->dvi = 0;
  damage->offset = at;
  damage->claimed = claimed;
  damage->present = view->size - at;
}

/* Describes what check_package found. */
/*@
  requires true_view(view) && \valid(damage);
  requires \separated(damage, view, view->bytes + (0 .. view->size - 1));
  requires MORVANE_VIEW_BYTES_LEFT_OVER <= status < MORVANE_VIEW_OK;
  requires stopped(*view, status, at);
  assigns damage->status, damage->dvi, damage->offset, damage->claimed, damage->present;
  ensures damage->status == status && describes(\old(*view), damage);
*/
static void describe(const struct morvane_view* view, int status, size_t at,
                     struct morvane_view_damage* damage) {
  damage->status = status;
  if (MORVANE_VIEW_IMAGE_CUT <= status && status <= MORVANE_VIEW_BLOCK_SIZE_DISAGREES) {
    describe_dvi(view, at, damage);
  } else if (MORVANE_VIEW_SMBS_CUT <= status && status <= MORVANE_VIEW_VPROC_SIZE_DISAGREES) {
    describe_vproc(view, at, damage);
  } else {
    describe_package(view, at, damage);
  }
}

/*@
  requires \valid(view) && \valid_read(bytes + (0 .. size - 1));
  requires damage == \null || \valid(damage);
  requires \separated(view, damage, bytes + (0 .. size - 1));
  assigns *view, *damage;
  ensures view->bytes == bytes && view->size == size;
  ensures MORVANE_VIEW_BYTES_LEFT_OVER <= \result <= MORVANE_VIEW_OK;
  ensures walked(*view);
  ensures \result == MORVANE_VIEW_OK ==> accepted(*view);
  ensures \result != MORVANE_VIEW_OK && damage != \null ==>
    damage->status == \result && describes(*view, damage);
*/
int morvane_view_open(struct morvane_view* view, const uint8_t* bytes, size_t size,
                      struct morvane_view_damage* damage) {
  size_t at = 0;
  int status = MORVANE_VIEW_OK;
  view->bytes = bytes;
  view->size = size;
  view->version = 0;
  view->HASH = 0;
  view->dvi_num = 0;
  view->sound_dvis = 0;
  view->vproc_table = 0;
  view->sound_vprocs = 0;
  status = check_package(view, &at);
  if (status != MORVANE_VIEW_OK && damage != NULL) {
    describe(view, status, at, damage);
    /*@ assert walked(*view) && describes(*view, damage); */
  }
  return status;
}

/*@
  requires \valid_read(view);
  assigns \nothing;
  ensures \result == (view->vproc_table != 0 ? MORVANE_VIEW_OK : MORVANE_VIEW_NO_VPROC);
*/
int morvane_view_need_vproc(const struct morvane_view* view) {
  return view->vproc_table != 0 ? MORVANE_VIEW_OK : MORVANE_VIEW_NO_VPROC;
}

/* The number of characters before the first NUL of a field, or its width. */
/*@
  requires \valid_read(field + (0 .. width - 1));
  assigns \nothing;
  ensures is_text((char *)field, \result, field, width);
*/
static size_t text_length(const uint8_t* field, size_t width) {
  size_t length = 0;
  /*@
    loop invariant length <= width;
    loop invariant \forall integer k; 0 <= k < length ==> field[k] != 0;
    loop assigns length;
    loop variant width - length;
  */
  while (length < width && field[length] != 0) {
    ++length;
  }
  return length;
}

/*@
  requires \valid_read(text.bytes + (0 .. text.length - 1)) && is_string(string);
  assigns \nothing;
  ensures \result == 0 || \result == 1;
  ensures \result == 1 <==> equal(text.bytes, text.length, string);
*/
int morvane_text_equals(struct morvane_text text, const char* string) {
  size_t i = 0;
  /*@
    loop invariant 0 <= i <= text.length;
    loop invariant \forall integer k; 0 <= k < i ==>
      string[k] != 0 && string[k] == text.bytes[k];
    loop assigns i;
    loop variant text.length - i;
  */
  for (i = 0; i < text.length; ++i) {
    if (string[i] == '\0' || string[i] != text.bytes[i]) {
      return 0;
    }
  }
  return string[text.length] == '\0';
}

/*@
  requires \valid_read(record + (0 .. DVI_BYTES - 1)) && \valid(dvi);
  requires \separated(dvi, record + (0 .. DVI_BYTES - 1));
  assigns dvi->dvi_id, dvi->vproc_id, dvi->dvi_ppv, dvi->reserved, dvi->dvi_img_vaddr,
          dvi->dvi_img_size, dvi->dvi_dag_vaddr, dvi->input_num, dvi->output_num,
          dvi->dvi_pkg_size, dvi->dag_name.bytes, dvi->dag_name.length;
  ensures dvi_fields(record, dvi);
  ensures \valid_read(dvi->dag_name.bytes + (0 .. dvi->dag_name.length - 1));
*/
static void decode_dvi(const uint8_t* record, struct morvane_view_dvi* dvi) {
  const uint8_t* const name = record + offsetof(struct morvane_dvi_desc, dag_name);
  dvi->dvi_id = record[offsetof(struct morvane_dvi_desc, dvi_id)];
  dvi->vproc_id = record[offsetof(struct morvane_dvi_desc, vproc_id)];
  dvi->dvi_ppv = record[offsetof(struct morvane_dvi_desc, dvi_ppv)];
  dvi->reserved = record[offsetof(struct morvane_dvi_desc, reserved)];
  dvi->dvi_img_vaddr = word(record + offsetof(struct morvane_dvi_desc, dvi_img_vaddr));
  dvi->dvi_img_size = word(record + offsetof(struct morvane_dvi_desc, dvi_img_size));
  dvi->dvi_dag_vaddr = word(record + offsetof(struct morvane_dvi_desc, dvi_dag_vaddr));
  dvi->input_num = word(record + offsetof(struct morvane_dvi_desc, input_num));
  dvi->output_num = word(record + offsetof(struct morvane_dvi_desc, output_num));
  dvi->dvi_pkg_size = word(record + offsetof(struct morvane_dvi_desc, dvi_pkg_size));
  dvi->dag_name.bytes = (const char*)name;
  dvi->dag_name.length = text_length(name, MORVANE_NAME_WIDTH);
}

/*@
  requires \valid_read(record + (0 .. VPROC_BYTES - 1)) && \valid(dvi);
  requires \separated(dvi, record + (0 .. VPROC_BYTES - 1));
  assigns dvi->variable_num, dvi->smb_num, dvi->vproc_records_size;
  ensures vproc_fields(record, dvi);
*/
static void decode_vproc(const uint8_t* record, struct morvane_view_dvi* dvi) {
  dvi->variable_num = word(record + offsetof(struct morvane_vproc_desc, variable_num));
  dvi->smb_num = word(record + offsetof(struct morvane_vproc_desc, smb_num));
  dvi->vproc_records_size = word(record + offsetof(struct morvane_vproc_desc, vproc_records_size));
}

/* The DVI at a position, whose blocks begin at the given offsets. */
/*@
  requires true_view(view) && \valid(dvi);
  requires \separated(dvi, view, view->bytes + (0 .. view->size - 1));
  assigns *dvi;
  behavior out_of_range:
    assumes position >= view->sound_dvis;
    assigns \nothing;
    ensures dvi->position == \old(dvi->position);
    ensures \result == MORVANE_VIEW_OUT_OF_RANGE;
  behavior dvi_table_cut:
    assumes position < view->sound_dvis;
    assumes HEADER_BYTES + (position + 1) * DVI_BYTES > view->size;
    assigns \nothing;
    ensures \result == MORVANE_VIEW_DVI_TABLE_CUT;
  behavior vproc_table_cut:
    assumes position < view->sound_dvis;
    assumes HEADER_BYTES + (position + 1) * DVI_BYTES <= view->size;
    assumes position < view->sound_vprocs;
    assumes view->vproc_table + (position + 1) * VPROC_BYTES > view->size;
    assigns \nothing;
    ensures \result == MORVANE_VIEW_VPROC_TABLE_CUT;
  behavior found:
    assumes position < view->sound_dvis;
    assumes HEADER_BYTES + (position + 1) * DVI_BYTES <= view->size;
    assumes position < view->sound_vprocs ==>
            view->vproc_table + (position + 1) * VPROC_BYTES <= view->size;
    ensures \result == MORVANE_VIEW_OK;
    ensures dvi->position == position && dvi->block == block && from_records(\old(*view), dvi);
    ensures \valid_read(dvi->dag_name.bytes + (0 .. dvi->dag_name.length - 1));
    ensures position < \old(view->sound_vprocs) ==> dvi->vproc_block == vproc_block;
  complete behaviors;
  disjoint behaviors;
*/
static int load_dvi(const struct morvane_view* view, uint32_t position, size_t block,
                    size_t vproc_block, struct morvane_view_dvi* dvi) {
  const uint8_t* const bytes = view->bytes;
  const size_t table = view->vproc_table;
  const int with_vproc = position < view->sound_vprocs;
  const uint64_t desc = (uint64_t)position * DVI_BYTES;
  const uint64_t vproc = (uint64_t)position * VPROC_BYTES;
  if (position >= view->sound_dvis) {
    return MORVANE_VIEW_OUT_OF_RANGE;
  }
  if (!has(view, HEADER_BYTES, desc, DVI_BYTES)) {
    return MORVANE_VIEW_DVI_TABLE_CUT;
  }
  if (with_vproc && !has(view, table, vproc, VPROC_BYTES)) {
    return MORVANE_VIEW_VPROC_TABLE_CUT;
  }
  /*@ assert with_vproc != 0 ==>
        \valid_read(vproc_desc(bytes, table, position) + (0 .. VPROC_BYTES - 1)); */
  /*@ assert with_vproc != 0 ==>
        \separated(dvi, vproc_desc(bytes, table, position) + (0 .. VPROC_BYTES - 1)); */
  dvi->variable_num = 0;
  dvi->smb_num = 0;
  dvi->vproc_records_size = 0;
  dvi->vproc_offset = 0;
  dvi->vproc_block = 0;
  if (with_vproc) {
    dvi->vproc_offset = table + (size_t)vproc;
    dvi->vproc_block = vproc_block;
    /*@ assert bytes + dvi->vproc_offset == vproc_desc(bytes, table, position); */
    decode_vproc(bytes + dvi->vproc_offset, dvi);
  }
  dvi->position = position;
  dvi->offset = HEADER_BYTES + (size_t)desc;
  dvi->block = block;
  /*@ assert with_vproc != 0 ==> vproc_fields(vproc_desc(bytes, table, position), dvi); */
  /*@ assert with_vproc == 0 ==> no_vproc(dvi); */
  /*@ assert bytes + dvi->offset == dvi_desc(bytes, position); */
  decode_dvi(bytes + dvi->offset, dvi);
  /*@ assert with_vproc != 0 ==> vproc_fields(vproc_desc(bytes, table, position), dvi); */
  /*@ assert with_vproc == 0 ==> no_vproc(dvi); */
  /*@ assert from_records(\at(*view, Pre), dvi); */
  return MORVANE_VIEW_OK;
}

/*@
  requires true_view(view) && \valid(dvi);
  requires \separated(dvi, view, view->bytes + (0 .. view->size - 1));
  assigns *dvi;
  ensures \result == MORVANE_VIEW_OK ==> dvi->position == 0 < \old(view->sound_dvis);
  ensures \result == MORVANE_VIEW_OK ==> from_records(\old(*view), dvi);
  ensures \result == MORVANE_VIEW_OK ==>
    \valid_read(dvi->dag_name.bytes + (0 .. dvi->dag_name.length - 1));
  ensures \old(walked(*view) && 0 < view->sound_dvis) ==>
    \result == MORVANE_VIEW_OK && in_place(\old(*view), dvi);
  ensures \old(accepted(*view) && view->dvi_num == 0) ==> \result == MORVANE_VIEW_OUT_OF_RANGE;
*/
int morvane_view_first(const struct morvane_view* view, struct morvane_view_dvi* dvi) {
  const uint64_t table = (uint64_t)view->dvi_num * DVI_BYTES;
  const uint64_t vproc_table = (uint64_t)view->dvi_num * VPROC_BYTES;
  const int with_vprocs = view->sound_vprocs != 0;
  int status = MORVANE_VIEW_OK;
  size_t vproc_block = 0;
  if (!has(view, HEADER_BYTES, table, 0)) {
    return MORVANE_VIEW_DVI_TABLE_CUT;
  }
  if (with_vprocs && !has(view, view->vproc_table, vproc_table, 0)) {
    return MORVANE_VIEW_VPROC_TABLE_CUT;
  }
  if (with_vprocs) {
    vproc_block = view->vproc_table + (size_t)vproc_table;
  }
  status = load_dvi(view, 0, HEADER_BYTES + (size_t)table, vproc_block, dvi);
  return status;
}

/*@
  requires true_view(view) && \valid(dvi);
  requires \separated(dvi, view, view->bytes + (0 .. view->size - 1));
  assigns *dvi;
  ensures \result == MORVANE_VIEW_OK ==>
    dvi->position == \old(dvi->position) + 1 < \old(view->sound_dvis);
  ensures \result == MORVANE_VIEW_OK ==> from_records(\old(*view), dvi);
  ensures \result == MORVANE_VIEW_OK ==>
    \valid_read(dvi->dag_name.bytes + (0 .. dvi->dag_name.length - 1));
  ensures \result == MORVANE_VIEW_OUT_OF_RANGE ==> dvi->position == \old(dvi->position);
  ensures \old(walked(*view) && in_place(*view, dvi) &&
               dvi->position + 1 < view->sound_dvis) ==> \result == MORVANE_VIEW_OK;
  ensures \old(walked(*view) && in_place(*view, dvi)) && \result == MORVANE_VIEW_OK ==>
    in_place(\old(*view), dvi);
  ensures \old(walked(*view) && in_place(*view, dvi) &&
               dvi->position + 1 >= view->sound_dvis) ==>
    \result == MORVANE_VIEW_OUT_OF_RANGE;
*/
int morvane_view_next(const struct morvane_view* view, struct morvane_view_dvi* dvi) {
  const uint64_t ports = port_bytes(dvi->input_num, dvi->output_num);
  const uint64_t vproc = vproc_bytes(dvi->variable_num, dvi->smb_num);
  int status = MORVANE_VIEW_OK;
  /*@ assert walked(*view) && in_place(*view, dvi) ==>
        dvi->block + ports + dvi->dvi_img_size <= view->size &&
        block_at(view->bytes, view->dvi_num, dvi->position + 1) ==
          dvi->block + ports + dvi->dvi_img_size; */
  /*@ assert walked(*view) && in_place(*view, dvi) && dvi->position < view->sound_vprocs ==>
        dvi->vproc_block + vproc <= view->size &&
        vproc_at(view->bytes, view->dvi_num, view->vproc_table, dvi->position + 1) ==
          dvi->vproc_block + vproc; */
  /*@ assert walked(*view) && in_place(*view, dvi) ==> dvi->vproc_block + vproc <= view->size; */
  /*@ assert walked(*view) && dvi->position + 1 < view->sound_dvis ==>
        HEADER_BYTES + (dvi->position + 2) * DVI_BYTES <= view->size; */
  /*@ assert walked(*view) && dvi->position + 1 < view->sound_vprocs ==>
        view->vproc_table + (dvi->position + 2) * VPROC_BYTES <= view->size; */
  if (dvi->position == UINT32_MAX) {
    return MORVANE_VIEW_OUT_OF_RANGE;
  }
  if (!has(view, dvi->block, ports, dvi->dvi_img_size)) {
    return MORVANE_VIEW_IMAGE_CUT;
  }
  if (!has(view, dvi->vproc_block, vproc, 0)) {
    return MORVANE_VIEW_SMBS_CUT;
  }
  status = load_dvi(view, dvi->position + 1, dvi->block + (size_t)ports + dvi->dvi_img_size,
                    dvi->vproc_block + (size_t)vproc, dvi);
  /*@ assert \at(walked(*view) && in_place(*view, dvi), Pre) && status == MORVANE_VIEW_OK ==>
        dvi->block == block_at(\at(view->bytes, Pre), \at(view->dvi_num, Pre), dvi->position); */
  /*@ assert \at(walked(*view) && in_place(*view, dvi), Pre) && status == MORVANE_VIEW_OK &&
        dvi->position < \at(view->sound_vprocs, Pre) ==>
        dvi->vproc_block == vproc_at(\at(view->bytes, Pre), \at(view->dvi_num, Pre),
                                     \at(view->vproc_table, Pre), dvi->position); */
  return status;
}

/*@
  requires true_view(view) && \valid(dvi) && is_string(dag_name);
  requires \separated(dvi, view, view->bytes + (0 .. view->size - 1), dag_name + (0 ..));
  assigns *dvi;
  ensures \result == MORVANE_VIEW_OK ==>
    from_records(\old(*view), dvi) &&
    equal(dvi->dag_name.bytes, dvi->dag_name.length, dag_name);
  ensures \old(accepted(*view)) ==>
    \result == MORVANE_VIEW_NOT_FOUND ||
    \result == MORVANE_VIEW_OK && in_place(\old(*view), dvi);
*/
int morvane_view_find(const struct morvane_view* view, const char* dag_name,
                      struct morvane_view_dvi* dvi) {
  int status = morvane_view_first(view, dvi);
  /*@
    loop invariant *view == \at(*view, Pre) && true_view(view);
    loop invariant \separated(dvi, view, view->bytes + (0 .. view->size - 1));
    loop invariant status == MORVANE_VIEW_OK ==> from_records(\at(*view, Pre), dvi);
    loop invariant status == MORVANE_VIEW_OK ==>
      \valid_read(dvi->dag_name.bytes + (0 .. dvi->dag_name.length - 1));
    loop invariant view->sound_dvis == \at(view->sound_dvis, Pre);
    loop invariant status == MORVANE_VIEW_OK ==> dvi->position < view->sound_dvis;
    loop invariant \at(accepted(*view), Pre) ==>
      status == MORVANE_VIEW_OUT_OF_RANGE ||
      status == MORVANE_VIEW_OK && in_place(\at(*view, Pre), dvi);
    loop assigns status, *dvi;
    loop variant status == MORVANE_VIEW_OK ? view->sound_dvis - dvi->position : 0;
  */
  while (status == MORVANE_VIEW_OK && !morvane_text_equals(dvi->dag_name, dag_name)) {
    status = morvane_view_next(view, dvi);
  }
  return status == MORVANE_VIEW_OUT_OF_RANGE ? MORVANE_VIEW_NOT_FOUND : status;
}

/*@
  requires \valid_read(record + (0 .. PORT_BYTES - 1)) && \valid(port);
  requires \separated(port, record + (0 .. PORT_BYTES - 1));
  assigns port->P, port->D, port->H, port->W, port->pitch, port->dram_format, port->flags,
          port->reserved[0], port->reserved[1], port->drotate_bit_offset, port->hflip_bit_offset,
          port->vflip_bit_offset, port->dflip_bit_offset, port->pflip_bit_offset, port->sign,
          port->datasize, port->expoffset, port->expbits, port->port_size,
          port->port_byte_offset, port->port_name.bytes, port->port_name.length,
          port->layer_name.bytes, port->layer_name.length;
  ensures port_fields(record, port);
*/
static void decode_port(const uint8_t* record, struct morvane_view_port* port) {
  const uint8_t* const port_name = record + offsetof(struct morvane_port_desc, port_name);
  const uint8_t* const layer_name = record + offsetof(struct morvane_port_desc, layer_name);
  port->P = word(record + offsetof(struct morvane_port_desc, P));
  port->D = word(record + offsetof(struct morvane_port_desc, D));
  port->H = word(record + offsetof(struct morvane_port_desc, H));
  port->W = word(record + offsetof(struct morvane_port_desc, W));
  port->pitch = word(record + offsetof(struct morvane_port_desc, pitch));
  port->dram_format = record[offsetof(struct morvane_port_desc, dram_format)];
  port->flags = record[offsetof(struct morvane_port_desc, flags)];
  port->reserved[0] = record[offsetof(struct morvane_port_desc, reserved)];
  port->reserved[1] = record[offsetof(struct morvane_port_desc, reserved) + 1];
  port->drotate_bit_offset = word(record + offsetof(struct morvane_port_desc, drotate_bit_offset));
  port->hflip_bit_offset = word(record + offsetof(struct morvane_port_desc, hflip_bit_offset));
  port->vflip_bit_offset = word(record + offsetof(struct morvane_port_desc, vflip_bit_offset));
  port->dflip_bit_offset = word(record + offsetof(struct morvane_port_desc, dflip_bit_offset));
  port->pflip_bit_offset = word(record + offsetof(struct morvane_port_desc, pflip_bit_offset));
  port->sign = record[offsetof(struct morvane_port_desc, sign)];
  port->datasize = record[offsetof(struct morvane_port_desc, datasize)];
  port->expoffset = s8(record[offsetof(struct morvane_port_desc, expoffset)]);
  port->expbits = record[offsetof(struct morvane_port_desc, expbits)];
  port->port_size = word(record + offsetof(struct morvane_port_desc, port_size));
  port->port_byte_offset = word(record + offsetof(struct morvane_port_desc, port_byte_offset));
  port->port_name.bytes = (const char*)port_name;
  port->port_name.length = text_length(port_name, MORVANE_IO_NAME_WIDTH);
  port->layer_name.bytes = (const char*)layer_name;
  port->layer_name.length = text_length(layer_name, MORVANE_IO_NAME_WIDTH);
}

/* The port at a position of a DVI's input and output ports together. */
/*@
  requires true_view(view) && \valid_read(dvi) && \valid(port);
  requires \separated(port, view, dvi, view->bytes + (0 .. view->size - 1));
  requires position < 0x200000000;
  assigns *port;
  behavior inside:
    assumes dvi->block + (position + 1) * PORT_BYTES <= view->size;
    ensures \result == MORVANE_VIEW_OK;
    ensures port->offset == \old(dvi->block + position * PORT_BYTES);
    ensures port_fields(\old(view->bytes + (dvi->block + position * PORT_BYTES)), port);
  behavior cut:
    assumes dvi->block + (position + 1) * PORT_BYTES > view->size;
    assigns \nothing;
    ensures \result == MORVANE_VIEW_PORTS_CUT;
  complete behaviors;
  disjoint behaviors;
*/
static int load_port(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                     uint64_t position, struct morvane_view_port* port) {
  const uint64_t skipped = position * PORT_BYTES;
  const uint8_t* record = NULL;
  size_t offset = 0;
  if (!has(view, dvi->block, skipped, PORT_BYTES)) {
    return MORVANE_VIEW_PORTS_CUT;
  }
  offset = dvi->block + (size_t)skipped;
  record = view->bytes + offset;
  /*@ assert record == view->bytes + (dvi->block + position * PORT_BYTES); */
  port->offset = offset;
  decode_port(record, port);
  return MORVANE_VIEW_OK;
}

/*@
  requires true_view(view) && \valid_read(dvi) && \valid(port);
  requires \separated(port, view, dvi, view->bytes + (0 .. view->size - 1));
  assigns *port;
  behavior out_of_range:
    assumes index >= dvi->input_num;
    assigns \nothing;
    ensures \result == MORVANE_VIEW_OUT_OF_RANGE;
  behavior inside:
    assumes index < dvi->input_num;
    assumes dvi->block + (index + 1) * PORT_BYTES <= view->size;
    ensures \result == MORVANE_VIEW_OK;
    ensures port->offset == \old(dvi->block + index * PORT_BYTES);
    ensures port_fields(\old(view->bytes + (dvi->block + index * PORT_BYTES)), port);
  behavior cut:
    assumes index < dvi->input_num;
    assumes dvi->block + (index + 1) * PORT_BYTES > view->size;
    ensures !\old(walked(*view) && in_place(*view, dvi));
    ensures \result == MORVANE_VIEW_PORTS_CUT;
  complete behaviors;
  disjoint behaviors;
*/
int morvane_view_input(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                       uint32_t index, struct morvane_view_port* port) {
  if (index >= dvi->input_num) {
    return MORVANE_VIEW_OUT_OF_RANGE;
  }
  return load_port(view, dvi, index, port);
}

/*@
  requires true_view(view) && \valid_read(dvi) && \valid(port);
  requires \separated(port, view, dvi, view->bytes + (0 .. view->size - 1));
  assigns *port;
  behavior out_of_range:
    assumes index >= dvi->output_num;
    assigns \nothing;
    ensures \result == MORVANE_VIEW_OUT_OF_RANGE;
  behavior inside:
    assumes index < dvi->output_num;
    assumes dvi->block + (dvi->input_num + index + 1) * PORT_BYTES <= view->size;
    ensures \result == MORVANE_VIEW_OK;
    ensures port->offset == \old(dvi->block + (dvi->input_num + index) * PORT_BYTES);
    ensures port_fields(
      \old(view->bytes + (dvi->block + (dvi->input_num + index) * PORT_BYTES)), port);
  behavior cut:
    assumes index < dvi->output_num;
    assumes dvi->block + (dvi->input_num + index + 1) * PORT_BYTES > view->size;
    ensures !\old(walked(*view) && in_place(*view, dvi));
    ensures \result == MORVANE_VIEW_PORTS_CUT;
  complete behaviors;
  disjoint behaviors;
*/
int morvane_view_output(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                        uint32_t index, struct morvane_view_port* port) {
  if (index >= dvi->output_num) {
    return MORVANE_VIEW_OUT_OF_RANGE;
  }
  return load_port(view, dvi, (uint64_t)dvi->input_num + index, port);
}

/*@
  requires true_view(view) && \valid_read(dvi) && \valid(image);
  requires \separated(image, view, dvi, view->bytes + (0 .. view->size - 1));
  assigns *image;
  behavior inside:
    assumes dvi->block + (dvi->input_num + dvi->output_num) * PORT_BYTES + dvi->dvi_img_size <=
            view->size;
    ensures \result == MORVANE_VIEW_OK;
    ensures image->bytes ==
      \old(view->bytes + (dvi->block + (dvi->input_num + dvi->output_num) * PORT_BYTES));
    ensures image->size == \old(dvi->dvi_img_size);
  behavior cut:
    assumes dvi->block + (dvi->input_num + dvi->output_num) * PORT_BYTES + dvi->dvi_img_size >
            view->size;
    assigns \nothing;
    ensures !\old(walked(*view) && in_place(*view, dvi));
    ensures \result == MORVANE_VIEW_IMAGE_CUT;
  complete behaviors;
  disjoint behaviors;
*/
int morvane_view_image(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                       struct morvane_bytes* image) {
  const uint64_t ports = port_bytes(dvi->input_num, dvi->output_num);
  if (!has(view, dvi->block, ports, dvi->dvi_img_size)) {
    return MORVANE_VIEW_IMAGE_CUT;
  }
  image->bytes = view->bytes + dvi->block + (size_t)ports;
  image->size = dvi->dvi_img_size;
  return MORVANE_VIEW_OK;
}

/*@
  requires true_view(view) && \valid_read(dvi) && \valid(variable);
  requires \separated(variable, view, dvi, view->bytes + (0 .. view->size - 1));
  assigns *variable;
  behavior out_of_range:
    assumes index >= dvi->variable_num;
    assigns \nothing;
    ensures \result == MORVANE_VIEW_OUT_OF_RANGE;
  behavior inside:
    assumes index < dvi->variable_num;
    assumes dvi->vproc_block + (index + 1) * VAR_BYTES <= view->size;
    ensures \result == MORVANE_VIEW_OK;
    ensures variable->offset == \old(dvi->vproc_block + index * VAR_BYTES);
    ensures is_text(variable->var.bytes, variable->var.length, \old(view->bytes) + variable->offset,
                    MORVANE_NAME_WIDTH);
    ensures variable->boffset == u32(\old(view->bytes) + variable->offset + 128);
    ensures variable->bsize == u32(\old(view->bytes) + variable->offset + 132);
  behavior cut:
    assumes index < dvi->variable_num;
    assumes dvi->vproc_block + (index + 1) * VAR_BYTES > view->size;
    assigns \nothing;
    ensures !\old(walked(*view) && in_place(*view, dvi));
    ensures \result == MORVANE_VIEW_VARIABLES_CUT;
  complete behaviors;
  disjoint behaviors;
*/
int morvane_view_variable(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                          uint32_t index, struct morvane_view_var* variable) {
  const uint64_t skipped = vproc_bytes(index, 0);
  const uint8_t* record = NULL;
  size_t offset = 0;
  if (index >= dvi->variable_num) {
    return MORVANE_VIEW_OUT_OF_RANGE;
  }
  if (!has(view, dvi->vproc_block, skipped, VAR_BYTES)) {
    return MORVANE_VIEW_VARIABLES_CUT;
  }
  offset = dvi->vproc_block + (size_t)skipped;
  record = view->bytes + offset;
  variable->offset = offset;
  variable->var.bytes = (const char*)record + offsetof(struct morvane_var_desc, var);
  variable->var.length =
      text_length(record + offsetof(struct morvane_var_desc, var), MORVANE_NAME_WIDTH);
  variable->boffset = word(record + offsetof(struct morvane_var_desc, boffset));
  variable->bsize = word(record + offsetof(struct morvane_var_desc, bsize));
  return MORVANE_VIEW_OK;
}

/*@
  requires true_view(view) && \valid_read(dvi) && \valid(smb);
  requires \separated(smb, view, dvi, view->bytes + (0 .. view->size - 1));
  assigns *smb;
  behavior out_of_range:
    assumes index >= dvi->smb_num;
    assigns \nothing;
    ensures \result == MORVANE_VIEW_OUT_OF_RANGE;
  behavior inside:
    assumes index < dvi->smb_num;
    assumes dvi->vproc_block + dvi->variable_num * VAR_BYTES + (index + 1) * SMB_BYTES <=
            view->size;
    ensures \result == MORVANE_VIEW_OK;
    ensures smb->offset ==
      \old(dvi->vproc_block + dvi->variable_num * VAR_BYTES + index * SMB_BYTES);
    ensures is_text(smb->smb_name.bytes, smb->smb_name.length, \old(view->bytes) + smb->offset,
                    MORVANE_NAME_WIDTH);
    ensures smb->vbase_byte_offset == u32(\old(view->bytes) + smb->offset + 128);
  behavior cut:
    assumes index < dvi->smb_num;
    assumes dvi->vproc_block + dvi->variable_num * VAR_BYTES + (index + 1) * SMB_BYTES >
            view->size;
    assigns \nothing;
    ensures !\old(walked(*view) && in_place(*view, dvi));
    ensures \result == MORVANE_VIEW_SMBS_CUT;
  complete behaviors;
  disjoint behaviors;
*/
int morvane_view_smb(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                     uint32_t index, struct morvane_view_smb_block* smb) {
  const uint64_t skipped = vproc_bytes(dvi->variable_num, index);
  const uint8_t* record = NULL;
  size_t offset = 0;
  if (index >= dvi->smb_num) {
    return MORVANE_VIEW_OUT_OF_RANGE;
  }
  if (!has(view, dvi->vproc_block, skipped, SMB_BYTES)) {
    return MORVANE_VIEW_SMBS_CUT;
  }
  offset = dvi->vproc_block + (size_t)skipped;
  record = view->bytes + offset;
  smb->offset = offset;
  smb->smb_name.bytes = (const char*)record + offsetof(struct morvane_smb_desc, smb_name);
  smb->smb_name.length =
      text_length(record + offsetof(struct morvane_smb_desc, smb_name), MORVANE_NAME_WIDTH);
  smb->vbase_byte_offset = word(record + offsetof(struct morvane_smb_desc, vbase_byte_offset));
  return MORVANE_VIEW_OK;
}
