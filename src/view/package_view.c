/*
 * The reader of packages. The comments that begin with an @ are contracts: scripts/prove.sh tries to
 * prove that every function keeps its own, for every package.
 *
 * Sums and products of counts are computed in 64 bits, where those of 32-bit counts cannot
 * overflow, and compared with the bytes that are left. Only what was found to fit becomes an
 * offset.
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

/*
 * What the contracts speak of. A package has so many DVIs (n) and so many bytes (size).
 *
 *     u32         the little-endian word at an address
 *     block_at    the offset of the DVI block at a position; that at position n is where the last
 *                 one ends
 *     vproc_at    the same of the vproc blocks, which follow a table at an offset
 */
/*@
  logic integer u32(uint8_t *at) =
    at[0] + 0x100 * at[1] + 0x10000 * at[2] + 0x1000000 * at[3];

  logic uint8_t *dvi_desc(uint8_t *bytes, integer i) = bytes + (HEADER_BYTES + i * DVI_BYTES);

  logic integer image_size(uint8_t *bytes, integer i) = u32(dvi_desc(bytes, i) + 8);
  logic integer input_num(uint8_t *bytes, integer i) = u32(dvi_desc(bytes, i) + 16);
  logic integer output_num(uint8_t *bytes, integer i) = u32(dvi_desc(bytes, i) + 20);
  logic integer pkg_size(uint8_t *bytes, integer i) = u32(dvi_desc(bytes, i) + 24);
  logic integer ports_size(uint8_t *bytes, integer i) =
    (input_num(bytes, i) + output_num(bytes, i)) * PORT_BYTES;
  logic integer block_size(uint8_t *bytes, integer i) =
    ports_size(bytes, i) + image_size(bytes, i);

  logic uint8_t *vproc_desc(uint8_t *bytes, integer table, integer i) =
    bytes + (table + i * VPROC_BYTES);

  logic integer variables_size(uint8_t *bytes, integer table, integer i) =
    u32(vproc_desc(bytes, table, i)) * VAR_BYTES;
  logic integer smbs_size(uint8_t *bytes, integer table, integer i) =
    u32(vproc_desc(bytes, table, i) + 4) * SMB_BYTES;
  logic integer records_size(uint8_t *bytes, integer table, integer i) =
    u32(vproc_desc(bytes, table, i) + 8);
  logic integer vproc_size(uint8_t *bytes, integer table, integer i) =
    variables_size(bytes, table, i) + smbs_size(bytes, table, i);

  axiomatic Walk {
    logic integer block_at(uint8_t *bytes, integer n, integer i) reads bytes[..];
    axiom first_block: \forall uint8_t *bytes, integer n;
      block_at(bytes, n, 0) == HEADER_BYTES + n * DVI_BYTES;
    axiom next_block: \forall uint8_t *bytes, integer n, i, next; 0 <= i && next == i + 1 ==>
      block_at(bytes, n, next) == block_at(bytes, n, i) + block_size(bytes, i);

    logic integer vproc_at(uint8_t *bytes, integer n, integer table, integer i) reads bytes[..];
    axiom first_vproc: \forall uint8_t *bytes, integer n, table;
      vproc_at(bytes, n, table, 0) == table + n * VPROC_BYTES;
    axiom next_vproc: \forall uint8_t *bytes, integer n, table, i, next;
      0 <= i && next == i + 1 ==>
        vproc_at(bytes, n, table, next) ==
          vproc_at(bytes, n, table, i) + vproc_size(bytes, table, i);
  }

  // The bytes and their number are true.
  predicate true_view(struct morvane_view *view) =
    \valid_read(view) && \valid_read(view->bytes + (0 .. view->size - 1));

  // The first so many DVI blocks agree with their dvi_pkg_size and end inside the package.
  predicate sound_blocks(uint8_t *bytes, integer size, integer n, integer count) =
    count <= n && (0 < count ==> block_at(bytes, n, 0) <= size) &&
    \forall integer i; 0 <= i < count ==>
      block_size(bytes, i) % 0x100000000 == pkg_size(bytes, i) &&
      block_at(bytes, n, i) + block_size(bytes, i) <= size;

  // The first so many vproc blocks agree with their vproc_records_size and end inside the package.
  predicate sound_vprocs(uint8_t *bytes, integer size, integer n, integer table, integer count) =
    count <= n && (0 < count ==> vproc_at(bytes, n, table, 0) <= size) &&
    \forall integer i; 0 <= i < count ==>
      vproc_size(bytes, table, i) % 0x100000000 == records_size(bytes, table, i) &&
      vproc_at(bytes, n, table, i) + vproc_size(bytes, table, i) <= size;

  // What opening leaves behind, of a sound package and of a damaged one.
  predicate walked(struct morvane_view *view) =
    sound_blocks(view->bytes, view->size, view->dvi_num, view->sound_dvis) &&
    sound_vprocs(view->bytes, view->size, view->dvi_num, view->vproc_table, view->sound_vprocs) &&
    view->sound_vprocs <= view->sound_dvis;

  // What it promises of a package that it accepts: all blocks are sound and nothing follows them.
  predicate accepted(struct morvane_view *view) =
    walked(view) && view->sound_dvis == view->dvi_num &&
    HEADER_BYTES + view->dvi_num * DVI_BYTES <= view->size &&
    (view->vproc_table == 0
       ? view->sound_vprocs == 0 &&
         block_at(view->bytes, view->dvi_num, view->dvi_num) == view->size
       : view->sound_vprocs == view->dvi_num &&
         view->vproc_table == block_at(view->bytes, view->dvi_num, view->dvi_num) &&
         vproc_at(view->bytes, view->dvi_num, view->vproc_table, view->dvi_num) == view->size);

  predicate numbers(struct morvane_view_damage *damage, integer status, integer dvi,
                    integer offset, integer claimed, integer present) =
    damage != \null ==>
      damage->status == status && damage->dvi == dvi && damage->offset == offset &&
      damage->claimed == claimed && damage->present == present;

  predicate is_text(char *text, integer length, uint8_t *field, integer width) =
    text == (char *)field && 0 <= length <= width && (length < width ==> field[length] == 0) &&
    \forall integer k; 0 <= k < length ==> field[k] != 0;

  predicate is_string(char *string) =
    \exists integer n; 0 <= n && \valid_read(string + (0 .. n)) && string[n] == 0;

  predicate equal(char *text, integer length, char *string) =
    string[length] == 0 &&
    \forall integer k; 0 <= k < length ==> string[k] != 0 && string[k] == text[k];

  // The fields are those of the record at the position.
  predicate dvi_fields(uint8_t *bytes, struct morvane_view_dvi *dvi) =
    \let record = dvi_desc(bytes, dvi->position);
    dvi->offset == HEADER_BYTES + dvi->position * DVI_BYTES &&
    dvi->dvi_id == record[0] && dvi->vproc_id == record[1] && dvi->dvi_ppv == record[2] &&
    dvi->reserved == record[3] && dvi->dvi_img_vaddr == u32(record + 4) &&
    dvi->dvi_img_size == image_size(bytes, dvi->position) &&
    dvi->dvi_dag_vaddr == u32(record + 12) &&
    dvi->input_num == input_num(bytes, dvi->position) &&
    dvi->output_num == output_num(bytes, dvi->position) &&
    dvi->dvi_pkg_size == pkg_size(bytes, dvi->position) &&
    is_text(dvi->dag_name.bytes, dvi->dag_name.length, record + 28, MORVANE_NAME_WIDTH);

  predicate vproc_fields(uint8_t *bytes, integer table, struct morvane_view_dvi *dvi) =
    \let record = vproc_desc(bytes, table, dvi->position);
    dvi->vproc_offset == table + dvi->position * VPROC_BYTES &&
    dvi->variable_num == u32(record) && dvi->smb_num == u32(record + 4) &&
    dvi->vproc_records_size == u32(record + 8);

  predicate no_vproc(struct morvane_view_dvi *dvi) =
    dvi->vproc_offset == 0 && dvi->vproc_block == 0 && dvi->variable_num == 0 &&
    dvi->smb_num == 0 && dvi->vproc_records_size == 0;

  // The records of a DVI lie inside the package, and its fields are theirs.
  predicate from_records(struct morvane_view *view, struct morvane_view_dvi *dvi) =
    dvi->position < view->sound_dvis && dvi->offset + DVI_BYTES <= view->size &&
    dvi_fields(view->bytes, dvi) &&
    (dvi->position < view->sound_vprocs
       ? dvi->vproc_offset + VPROC_BYTES <= view->size &&
         vproc_fields(view->bytes, view->vproc_table, dvi)
       : no_vproc(dvi));

  predicate port_fields(uint8_t *record, struct morvane_view_port *port) =
    port->P == u32(record) && port->D == u32(record + 4) && port->H == u32(record + 8) &&
    port->W == u32(record + 12) && port->pitch == u32(record + 16) &&
    port->dram_format == record[20] && port->flags == record[21] &&
    port->reserved[0] == record[22] && port->reserved[1] == record[23] &&
    port->drotate_bit_offset == u32(record + 24) && port->hflip_bit_offset == u32(record + 28) &&
    port->vflip_bit_offset == u32(record + 32) && port->dflip_bit_offset == u32(record + 36) &&
    port->pflip_bit_offset == u32(record + 40) && port->sign == record[44] &&
    port->datasize == record[45] &&
    port->expoffset == (record[46] < 128 ? record[46] : record[46] - 256) &&
    port->expbits == record[47] && port->port_size == u32(record + 48) &&
    port->port_byte_offset == u32(record + 52) &&
    is_text(port->port_name.bytes, port->port_name.length, record + 56, MORVANE_IO_NAME_WIDTH) &&
    is_text(port->layer_name.bytes, port->layer_name.length, record + 568,
            MORVANE_IO_NAME_WIDTH);

  // A DVI that stands where the walk found it.
  predicate in_place(struct morvane_view *view, struct morvane_view_dvi *dvi) =
    from_records(view, dvi) &&
    dvi->block == block_at(view->bytes, view->dvi_num, dvi->position) &&
    (dvi->position < view->sound_vprocs ==>
      dvi->vproc_block ==
        vproc_at(view->bytes, view->dvi_num, view->vproc_table, dvi->position));
*/

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

/* A shift by 8 multiplies by 256. The provers know only a shift by 1, so they go there by doubling.
 */
/*@
  lemma shift_1: \forall integer x, n; 0 < n < 2 ==> (x << n) == 2 * x;
  lemma shift_2: \forall integer x, n; 1 < n < 3 ==>
    ((x << (n - 1)) << (n - 1)) == (x << n) && (x << n) == 4 * x;
  lemma shift_4: \forall integer x, n; 3 < n < 5 ==>
    ((x << (n - 2)) << (n - 2)) == (x << n) && (x << n) == 16 * x;
  lemma shift_8: \forall integer x, n; 7 < n < 9 ==>
    ((x << (n - 4)) << (n - 4)) == (x << n) && (x << n) == 256 * x;
*/

/*@
  requires \valid_read(at + (0 .. 3));
  assigns \nothing;
  ensures \result == u32(at);
*/
static uint32_t word(const uint8_t* at) {
  uint32_t value = at[3];
  value = (value << 8) + at[2];
  value = (value << 8) + at[1];
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

/* The size of the block that a dvi_desc counts. */
/*@
  requires \valid_read(dvi + (0 .. DVI_BYTES - 1));
  assigns \nothing;
  ensures \result == (u32(dvi + 16) + u32(dvi + 20)) * PORT_BYTES + u32(dvi + 8);
*/
static uint64_t block_bytes(const uint8_t* dvi) {
  return port_bytes(word(dvi + offsetof(struct morvane_dvi_desc, input_num)),
                    word(dvi + offsetof(struct morvane_dvi_desc, output_num))) +
         word(dvi + offsetof(struct morvane_dvi_desc, dvi_img_size));
}

/* The size of the block that a vproc_desc counts. */
/*@
  requires \valid_read(vproc + (0 .. VPROC_BYTES - 1));
  assigns \nothing;
  ensures \result == u32(vproc) * VAR_BYTES + u32(vproc + 4) * SMB_BYTES;
*/
static uint64_t vproc_block_bytes(const uint8_t* vproc) {
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

/* Describes a damage where somebody asks for it, and returns its status. */
/*@
  requires damage == \null || \valid(damage);
  assigns *damage;
  ensures \result == status;
  ensures numbers(damage, status, dvi, offset, claimed, present);
*/
static int refuse(struct morvane_view_damage* damage, int status, uint32_t dvi, size_t offset,
                  uint64_t claimed, uint64_t present) {
  if (damage != NULL) {
    damage->status = status;
    damage->dvi = dvi;
    damage->offset = offset;
    damage->claimed = claimed;
    damage->present = present;
  }
  return status;
}

/*@
  requires true_view(view) && \valid(view);
  requires damage == \null || \valid(damage);
  requires \separated(view, damage);
  assigns view->version, view->HASH, view->dvi_num, *damage;
  behavior accepts:
    assumes HEADER_BYTES <= view->size &&
            HEADER_BYTES + u32(view->bytes + 8) * DVI_BYTES <= view->size;
    ensures \result == MORVANE_VIEW_OK;
    ensures view->version == u32(view->bytes);
    ensures view->HASH == u32(view->bytes + 4);
    ensures view->dvi_num == u32(view->bytes + 8);
  behavior header_cut:
    assumes view->size < HEADER_BYTES;
    assigns *damage;
    ensures \result == MORVANE_VIEW_HEADER_CUT;
    ensures numbers(damage, \result, 0, 0, HEADER_BYTES, view->size);
  behavior table_cut:
    assumes HEADER_BYTES <= view->size <
            HEADER_BYTES + u32(view->bytes + 8) * DVI_BYTES;
    ensures \result == MORVANE_VIEW_DVI_TABLE_CUT;
    ensures numbers(damage, \result, 0, HEADER_BYTES, u32(view->bytes + 8) * DVI_BYTES,
                    view->size - HEADER_BYTES);
  complete behaviors;
  disjoint behaviors;
*/
static int open_header(struct morvane_view* view, struct morvane_view_damage* damage) {
  const uint8_t* const header = view->bytes;
  uint64_t table = 0;
  if (view->size < HEADER_BYTES) {
    return refuse(damage, MORVANE_VIEW_HEADER_CUT, 0, 0, HEADER_BYTES, view->size);
  }
  view->version = word(header + offsetof(struct morvane_pkg_header, version));
  view->HASH = word(header + offsetof(struct morvane_pkg_header, HASH));
  view->dvi_num = word(header + offsetof(struct morvane_pkg_header, dvi_num));
  table = (uint64_t)view->dvi_num * DVI_BYTES;
  if (table > view->size - HEADER_BYTES) {
    return refuse(damage, MORVANE_VIEW_DVI_TABLE_CUT, 0, HEADER_BYTES, table,
                  view->size - HEADER_BYTES);
  }
  return MORVANE_VIEW_OK;
}

/* Whether a DVI is sound: whether its block, of which so many bytes are left, is whole. */
/*@
  requires \valid_read(dvi + (0 .. DVI_BYTES - 1));
  assigns \nothing;
  ensures \let ports = (u32(dvi + 16) + u32(dvi + 20)) * PORT_BYTES;
    \result == ((ports + u32(dvi + 8)) % 0x100000000 != u32(dvi + 24)
                  ? MORVANE_VIEW_BLOCK_SIZE_DISAGREES
                : ports > left ? MORVANE_VIEW_PORTS_CUT
                : ports + u32(dvi + 8) > left ? MORVANE_VIEW_IMAGE_CUT : MORVANE_VIEW_OK);
*/
static int check_dvi(const uint8_t* dvi, size_t left) {
  const uint64_t block = block_bytes(dvi);
  const uint64_t ports = block - word(dvi + offsetof(struct morvane_dvi_desc, dvi_img_size));
  if (block % WRAP != word(dvi + offsetof(struct morvane_dvi_desc, dvi_pkg_size))) {
    return MORVANE_VIEW_BLOCK_SIZE_DISAGREES;
  }
  if (ports > left) {
    return MORVANE_VIEW_PORTS_CUT;
  }
  return block > left ? MORVANE_VIEW_IMAGE_CUT : MORVANE_VIEW_OK;
}

/* Describes what check_dvi found. */
/*@
  requires \valid_read(bytes + (0 .. size - 1)) && begin <= size;
  requires HEADER_BYTES + (position + 1) * DVI_BYTES <= size;
  requires damage == \null || \valid(damage);
  requires \separated(damage, bytes + (0 .. size - 1));
  requires status == MORVANE_VIEW_IMAGE_CUT ==> begin + ports_size(bytes, position) <= size;
  assigns *damage;
  ensures \result == status;
  ensures status == MORVANE_VIEW_BLOCK_SIZE_DISAGREES ==>
    numbers(damage, status, position, HEADER_BYTES + position * DVI_BYTES + 24,
            pkg_size(bytes, position), block_size(bytes, position));
  ensures status == MORVANE_VIEW_PORTS_CUT ==>
    numbers(damage, status, position, begin, ports_size(bytes, position), size - begin);
  ensures status == MORVANE_VIEW_IMAGE_CUT ==>
    numbers(damage, status, position, begin + ports_size(bytes, position),
            image_size(bytes, position), size - (begin + ports_size(bytes, position)));
*/
static int refuse_dvi(struct morvane_view_damage* damage, int status, uint32_t position,
                      const uint8_t* bytes, size_t size, size_t begin) {
  const size_t offset = HEADER_BYTES + (size_t)position * DVI_BYTES;
  const uint8_t* const dvi = bytes + offset;
  const uint32_t image = word(dvi + offsetof(struct morvane_dvi_desc, dvi_img_size));
  const uint64_t block = block_bytes(dvi);
  const uint64_t ports = block - image;
  if (status == MORVANE_VIEW_BLOCK_SIZE_DISAGREES) {
    return refuse(damage, status, position,
                  offset + offsetof(struct morvane_dvi_desc, dvi_pkg_size),
                  word(dvi + offsetof(struct morvane_dvi_desc, dvi_pkg_size)), block);
  }
  if (status == MORVANE_VIEW_IMAGE_CUT) {
    return refuse(damage, status, position, begin + (size_t)ports, image, size - begin - ports);
  }
  return refuse(damage, status, position, begin, ports, size - begin);
}

/* Checks all DVIs. Sets *end to where the block of the last sound one ends. */
/*@
  requires true_view(view) && \valid(view) && \valid(end);
  requires damage == \null || \valid(damage);
  requires \separated(view, damage, end, view->bytes + (0 .. view->size - 1));
  requires HEADER_BYTES + view->dvi_num * DVI_BYTES <= view->size;
  assigns view->sound_dvis, *end, *damage;
  ensures sound_blocks(view->bytes, view->size, view->dvi_num, view->sound_dvis);
  ensures *end == block_at(view->bytes, view->dvi_num, view->sound_dvis) && *end <= view->size;
  ensures \result == MORVANE_VIEW_OK ==> view->sound_dvis == view->dvi_num;
  ensures \result != MORVANE_VIEW_OK ==>
    MORVANE_VIEW_IMAGE_CUT <= \result <= MORVANE_VIEW_BLOCK_SIZE_DISAGREES &&
    !sound_blocks(view->bytes, view->size, view->dvi_num, view->dvi_num) &&
    (damage != \null ==> damage->status == \result && damage->dvi == view->sound_dvis);
*/
static int check_dvis(struct morvane_view* view, size_t* end, struct morvane_view_damage* damage) {
  const uint8_t* const bytes = view->bytes;
  const size_t size = view->size;
  const uint32_t dvi_num = view->dvi_num;
  int status = MORVANE_VIEW_OK;
  size_t begin = HEADER_BYTES + (size_t)dvi_num * DVI_BYTES;
  uint32_t i = 0;
  /*@
    loop invariant 0 <= i <= dvi_num && status == MORVANE_VIEW_OK;
    loop invariant begin == block_at(bytes, dvi_num, i) && begin <= size;
    loop invariant sound_blocks(bytes, size, dvi_num, i);
    loop assigns i, begin, status;
    loop variant dvi_num - i;
  */
  for (i = 0; i < dvi_num; ++i) {
    const uint8_t* const dvi = bytes + (HEADER_BYTES + (size_t)i * DVI_BYTES);
    /*@ assert dvi == dvi_desc(bytes, i); */
    status = check_dvi(dvi, size - begin);
    /*@ assert sound: status == MORVANE_VIEW_OK <==>
          block_size(bytes, i) % 0x100000000 == pkg_size(bytes, i) &&
          begin + block_size(bytes, i) <= size; */
    /*@ assert image: status == MORVANE_VIEW_IMAGE_CUT ==> begin + ports_size(bytes, i) <= size; */
    if (status != MORVANE_VIEW_OK) {
      break;
    }
    /*@ assert block_at(bytes, dvi_num, i + 1) == begin + block_size(bytes, i); */
    begin += (size_t)block_bytes(dvi);
  }
  if (status != MORVANE_VIEW_OK) {
    refuse_dvi(damage, status, i, bytes, size, begin);
  }
  view->sound_dvis = i;
  *end = begin;
  /*@ assert view->bytes == bytes && view->size == size && view->dvi_num == dvi_num; */
  return status;
}

/* Whether a vproc is sound: whether its block, of which so many bytes are left, is whole. */
/*@
  requires \valid_read(vproc + (0 .. VPROC_BYTES - 1));
  assigns \nothing;
  ensures \let variables = u32(vproc) * VAR_BYTES;
    \let smbs = u32(vproc + 4) * SMB_BYTES;
    \result == ((variables + smbs) % 0x100000000 != u32(vproc + 8)
                  ? MORVANE_VIEW_VPROC_SIZE_DISAGREES
                : variables > left ? MORVANE_VIEW_VARIABLES_CUT
                : variables + smbs > left ? MORVANE_VIEW_SMBS_CUT : MORVANE_VIEW_OK);
*/
static int check_vproc(const uint8_t* vproc, size_t left) {
  const uint64_t block = vproc_block_bytes(vproc);
  const uint64_t variables =
      vproc_bytes(word(vproc + offsetof(struct morvane_vproc_desc, variable_num)), 0);
  if (block % WRAP != word(vproc + offsetof(struct morvane_vproc_desc, vproc_records_size))) {
    return MORVANE_VIEW_VPROC_SIZE_DISAGREES;
  }
  if (variables > left) {
    return MORVANE_VIEW_VARIABLES_CUT;
  }
  return block > left ? MORVANE_VIEW_SMBS_CUT : MORVANE_VIEW_OK;
}

/* Describes what check_vproc found. */
/*@
  requires \valid_read(bytes + (0 .. size - 1)) && begin <= size;
  requires table + (position + 1) * VPROC_BYTES <= size;
  requires damage == \null || \valid(damage);
  requires \separated(damage, bytes + (0 .. size - 1));
  requires status == MORVANE_VIEW_SMBS_CUT ==>
    begin + variables_size(bytes, table, position) <= size;
  assigns *damage;
  ensures \result == status;
  ensures status == MORVANE_VIEW_VPROC_SIZE_DISAGREES ==>
    numbers(damage, status, position, table + position * VPROC_BYTES + 8,
            records_size(bytes, table, position), vproc_size(bytes, table, position));
  ensures status == MORVANE_VIEW_VARIABLES_CUT ==>
    numbers(damage, status, position, begin, variables_size(bytes, table, position),
            size - begin);
  ensures status == MORVANE_VIEW_SMBS_CUT ==>
    numbers(damage, status, position, begin + variables_size(bytes, table, position),
            smbs_size(bytes, table, position),
            size - (begin + variables_size(bytes, table, position)));
*/
static int refuse_vproc(struct morvane_view_damage* damage, int status, uint32_t position,
                        const uint8_t* bytes, size_t size, size_t table, size_t begin) {
  const size_t offset = table + (size_t)position * VPROC_BYTES;
  const uint8_t* const vproc = bytes + offset;
  const uint64_t block = vproc_block_bytes(vproc);
  const uint64_t variables =
      vproc_bytes(word(vproc + offsetof(struct morvane_vproc_desc, variable_num)), 0);
  if (status == MORVANE_VIEW_VPROC_SIZE_DISAGREES) {
    return refuse(damage, status, position,
                  offset + offsetof(struct morvane_vproc_desc, vproc_records_size),
                  word(vproc + offsetof(struct morvane_vproc_desc, vproc_records_size)), block);
  }
  if (status == MORVANE_VIEW_SMBS_CUT) {
    return refuse(damage, status, position, begin + (size_t)variables, block - variables,
                  size - begin - variables);
  }
  return refuse(damage, status, position, begin, variables, size - begin);
}

/* Checks all vprocs, whose table fits. Sets *end to where the block of the last sound one ends. */
/*@
  requires true_view(view) && \valid(view) && \valid(end);
  requires damage == \null || \valid(damage);
  requires \separated(view, damage, end, view->bytes + (0 .. view->size - 1));
  requires view->vproc_table + view->dvi_num * VPROC_BYTES <= view->size;
  assigns view->sound_vprocs, *end, *damage;
  ensures sound_vprocs(view->bytes, view->size, view->dvi_num, view->vproc_table,
                       view->sound_vprocs);
  ensures *end <= view->size &&
    *end == vproc_at(view->bytes, view->dvi_num, view->vproc_table, view->sound_vprocs);
  ensures \result == MORVANE_VIEW_OK ==> view->sound_vprocs == view->dvi_num;
  ensures \result != MORVANE_VIEW_OK ==>
    MORVANE_VIEW_SMBS_CUT <= \result <= MORVANE_VIEW_VPROC_SIZE_DISAGREES &&
    !sound_vprocs(view->bytes, view->size, view->dvi_num, view->vproc_table, view->dvi_num) &&
    (damage != \null ==> damage->status == \result && damage->dvi == view->sound_vprocs);
*/
static int check_vprocs(struct morvane_view* view, size_t* end,
                        struct morvane_view_damage* damage) {
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
    /*@ assert sound: status == MORVANE_VIEW_OK <==>
          vproc_size(bytes, table, i) % 0x100000000 == records_size(bytes, table, i) &&
          begin + vproc_size(bytes, table, i) <= size; */
    /*@ assert smbs: status == MORVANE_VIEW_SMBS_CUT ==>
          begin + variables_size(bytes, table, i) <= size; */
    if (status != MORVANE_VIEW_OK) {
      break;
    }
    /*@ assert vproc_at(bytes, dvi_num, table, i + 1) == begin + vproc_size(bytes, table, i); */
    begin += (size_t)vproc_block_bytes(vproc);
  }
  if (status != MORVANE_VIEW_OK) {
    refuse_vproc(damage, status, i, bytes, size, table, begin);
  }
  view->sound_vprocs = i;
  *end = begin;
  /*@ assert view->bytes == bytes && view->size == size && view->dvi_num == dvi_num &&
             view->vproc_table == table; */
  return status;
}

/* Checks the vproc section, which begins at *at. Sets *at to where the block of the last vproc
 * ends. */
/*@
  requires true_view(view) && \valid(view) && \valid(at);
  requires damage == \null || \valid(damage);
  requires \separated(view, damage, at, view->bytes + (0 .. view->size - 1));
  requires *at <= view->size;
  requires view->sound_vprocs == 0 && view->vproc_table == 0;
  assigns view->vproc_table, view->sound_vprocs, *at, *damage;
  ensures damage != \null && \result != MORVANE_VIEW_OK ==> damage->status == \result;
  behavior table_cut:
    assumes *at + view->dvi_num * VPROC_BYTES > view->size;
    assigns *damage;
    ensures \result == MORVANE_VIEW_VPROC_TABLE_CUT;
    ensures numbers(damage, \result, 0, \old(*at), \old(view->dvi_num) * VPROC_BYTES,
                    \old(view->size) - \old(*at));
  behavior table_fits:
    assumes *at + view->dvi_num * VPROC_BYTES <= view->size;
    ensures MORVANE_VIEW_SMBS_CUT <= \result <= MORVANE_VIEW_VPROC_SIZE_DISAGREES ||
            \result == MORVANE_VIEW_OK;
    ensures view->vproc_table == \old(*at);
    ensures sound_vprocs(view->bytes, view->size, view->dvi_num, view->vproc_table,
                         view->sound_vprocs);
    ensures \result == MORVANE_VIEW_OK ==> view->sound_vprocs == view->dvi_num;
    ensures *at <= view->size &&
      *at == vproc_at(view->bytes, view->dvi_num, view->vproc_table, view->sound_vprocs);
  complete behaviors;
  disjoint behaviors;
*/
static int check_vproc_section(struct morvane_view* view, size_t* at,
                               struct morvane_view_damage* damage) {
  const uint64_t table = (uint64_t)view->dvi_num * VPROC_BYTES;
  const uint64_t left = view->size - *at;
  if (table > left) {
    return refuse(damage, MORVANE_VIEW_VPROC_TABLE_CUT, 0, *at, table, left);
  }
  view->vproc_table = *at;
  return check_vprocs(view, at, damage);
}

/*@
  requires \valid(view) && \valid_read(bytes + (0 .. size - 1));
  requires damage == \null || \valid(damage);
  requires \separated(view, damage, bytes + (0 .. size - 1));
  assigns *view, *damage;
  ensures view->bytes == bytes && view->size == size;
  ensures walked(view);
  ensures \result == MORVANE_VIEW_OK ==> accepted(view);
  ensures \result != MORVANE_VIEW_OK && damage != \null ==> damage->status == \result;
  ensures MORVANE_VIEW_BYTES_LEFT_OVER <= \result <= MORVANE_VIEW_OK;
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
  status = open_header(view, damage);
  if (status == MORVANE_VIEW_OK) {
    status = check_dvis(view, &at, damage);
  }
  if (status == MORVANE_VIEW_OK && at < size && view->dvi_num > 0) {
    status = check_vproc_section(view, &at, damage);
  }
  if (status == MORVANE_VIEW_OK && at < size) {
    status = refuse(damage, MORVANE_VIEW_BYTES_LEFT_OVER, 0, at, 0, size - at);
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
  requires HEADER_BYTES + (position + 1) * DVI_BYTES <= SIZE_MAX;
  requires \valid_read(dvi_desc(bytes, position) + (0 .. DVI_BYTES - 1)) && \valid(dvi);
  requires \separated(dvi, dvi_desc(bytes, position) + (0 .. DVI_BYTES - 1));
  assigns *dvi;
  ensures dvi->position == position && dvi->block == block;
  ensures dvi->offset == HEADER_BYTES + position * DVI_BYTES;
  ensures dvi->dvi_id == dvi_desc(bytes, position)[0];
  ensures dvi->vproc_id == dvi_desc(bytes, position)[1];
  ensures dvi->dvi_ppv == dvi_desc(bytes, position)[2];
  ensures dvi->reserved == dvi_desc(bytes, position)[3];
  ensures dvi->dvi_img_vaddr == u32(dvi_desc(bytes, position) + 4);
  ensures dvi->dvi_img_size == image_size(bytes, position);
  ensures dvi->dvi_dag_vaddr == u32(dvi_desc(bytes, position) + 12);
  ensures dvi->input_num == input_num(bytes, position);
  ensures dvi->output_num == output_num(bytes, position);
  ensures dvi->dvi_pkg_size == pkg_size(bytes, position);
  ensures is_text(dvi->dag_name.bytes, dvi->dag_name.length, dvi_desc(bytes, position) + 28,
                  MORVANE_NAME_WIDTH);
  ensures no_vproc(dvi);
*/
static void decode_dvi(const uint8_t* bytes, uint32_t position, size_t block,
                       struct morvane_view_dvi* dvi) {
  const size_t offset = HEADER_BYTES + (size_t)position * DVI_BYTES;
  const uint8_t* const record = bytes + offset;
  const uint8_t* const name = record + offsetof(struct morvane_dvi_desc, dag_name);
  /*@ assert record == dvi_desc(bytes, position); */
  dvi->position = position;
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
  dvi->variable_num = 0;
  dvi->smb_num = 0;
  dvi->vproc_records_size = 0;
  dvi->offset = offset;
  dvi->block = block;
  dvi->vproc_offset = 0;
  dvi->vproc_block = 0;
}

/*@
  requires table + (position + 1) * VPROC_BYTES <= SIZE_MAX;
  requires \valid_read(vproc_desc(bytes, table, position) + (0 .. VPROC_BYTES - 1)) &&
           \valid(dvi);
  requires \separated(dvi, vproc_desc(bytes, table, position) + (0 .. VPROC_BYTES - 1));
  assigns dvi->variable_num, dvi->smb_num, dvi->vproc_records_size, dvi->vproc_offset,
          dvi->vproc_block;
  ensures dvi->vproc_offset == table + position * VPROC_BYTES && dvi->vproc_block == block;
  ensures dvi->variable_num == u32(vproc_desc(bytes, table, position));
  ensures dvi->smb_num == u32(vproc_desc(bytes, table, position) + 4);
  ensures dvi->vproc_records_size == u32(vproc_desc(bytes, table, position) + 8);
*/
static void decode_vproc(const uint8_t* bytes, size_t table, uint32_t position, size_t block,
                         struct morvane_view_dvi* dvi) {
  const size_t offset = table + (size_t)position * VPROC_BYTES;
  const uint8_t* const record = bytes + offset;
  /*@ assert record == vproc_desc(bytes, table, position); */
  dvi->variable_num = word(record + offsetof(struct morvane_vproc_desc, variable_num));
  dvi->smb_num = word(record + offsetof(struct morvane_vproc_desc, smb_num));
  dvi->vproc_records_size = word(record + offsetof(struct morvane_vproc_desc, vproc_records_size));
  dvi->vproc_offset = offset;
  dvi->vproc_block = block;
}

/* The DVI at a position, whose blocks begin at the given offsets. */
/*@
  requires true_view(view) && \valid(dvi);
  requires \separated(dvi, view, view->bytes + (0 .. view->size - 1));
  assigns *dvi;
  behavior out_of_range:
    assumes position >= view->sound_dvis;
    assigns \nothing;
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
    ensures dvi->position == position && dvi->block == block;
    ensures dvi_fields(\old(view->bytes), dvi);
    ensures position < \old(view->sound_vprocs) ==>
      dvi->vproc_block == vproc_block &&
      vproc_fields(\old(view->bytes), \old(view->vproc_table), dvi);
    ensures position >= \old(view->sound_vprocs) ==> no_vproc(dvi);
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
  decode_dvi(bytes, position, block, dvi);
  if (with_vproc) {
    decode_vproc(bytes, table, position, vproc_block, dvi);
  }
  return MORVANE_VIEW_OK;
}

/*@
  requires true_view(view) && \valid(dvi);
  requires \separated(dvi, view, view->bytes + (0 .. view->size - 1));
  assigns *dvi;
  ensures \result == MORVANE_VIEW_OK ==> dvi->position == 0 && from_records(view, dvi);
  ensures walked(view) && 0 < view->sound_dvis ==>
    \result == MORVANE_VIEW_OK && in_place(view, dvi);
  ensures accepted(view) && view->dvi_num == 0 ==> \result == MORVANE_VIEW_OUT_OF_RANGE;
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
  /*@ assert view->bytes == \at(view->bytes, Pre); */
  /*@ assert view->size == \at(view->size, Pre); */
  /*@ assert view->dvi_num == \at(view->dvi_num, Pre); */
  /*@ assert view->sound_dvis == \at(view->sound_dvis, Pre); */
  /*@ assert view->vproc_table == \at(view->vproc_table, Pre); */
  /*@ assert view->sound_vprocs == \at(view->sound_vprocs, Pre); */
  return status;
}

/*@
  requires true_view(view) && \valid(dvi);
  requires \separated(dvi, view, view->bytes + (0 .. view->size - 1));
  assigns *dvi;
  ensures \result == MORVANE_VIEW_OK ==>
    dvi->position == \old(dvi->position) + 1 && from_records(view, dvi);
  ensures \result == MORVANE_VIEW_OUT_OF_RANGE ==> dvi->position == \old(dvi->position);
  ensures walked(view) && \old(in_place(view, dvi)) ==>
    (\old(dvi->position) + 1 < view->sound_dvis
       ? \result == MORVANE_VIEW_OK && in_place(view, dvi)
       : \result == MORVANE_VIEW_OUT_OF_RANGE);
*/
int morvane_view_next(const struct morvane_view* view, struct morvane_view_dvi* dvi) {
  const uint64_t ports = port_bytes(dvi->input_num, dvi->output_num);
  const uint64_t vproc = vproc_bytes(dvi->variable_num, dvi->smb_num);
  int status = MORVANE_VIEW_OK;
  /*@ assert walked(view) && in_place(view, dvi) ==>
        dvi->block + ports + dvi->dvi_img_size <= view->size &&
        block_at(view->bytes, view->dvi_num, dvi->position + 1) ==
          dvi->block + ports + dvi->dvi_img_size; */
  /*@ assert walked(view) && in_place(view, dvi) && dvi->position < view->sound_vprocs ==>
        dvi->vproc_block + vproc <= view->size &&
        vproc_at(view->bytes, view->dvi_num, view->vproc_table, dvi->position + 1) ==
          dvi->vproc_block + vproc; */
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
  /*@ assert view->bytes == \at(view->bytes, Pre); */
  /*@ assert view->size == \at(view->size, Pre); */
  /*@ assert view->dvi_num == \at(view->dvi_num, Pre); */
  /*@ assert view->sound_dvis == \at(view->sound_dvis, Pre); */
  /*@ assert view->vproc_table == \at(view->vproc_table, Pre); */
  /*@ assert view->sound_vprocs == \at(view->sound_vprocs, Pre); */
  return status;
}

/*@
  requires true_view(view) && \valid(dvi) && is_string(dag_name);
  requires \separated(dvi, view, view->bytes + (0 .. view->size - 1), dag_name + (0 ..));
  assigns *dvi;
  ensures \result == MORVANE_VIEW_OK ==>
    from_records(view, dvi) &&
    equal(dvi->dag_name.bytes, dvi->dag_name.length, dag_name);
  ensures accepted(view) ==>
    \result == MORVANE_VIEW_NOT_FOUND || \result == MORVANE_VIEW_OK && in_place(view, dvi);
*/
int morvane_view_find(const struct morvane_view* view, const char* dag_name,
                      struct morvane_view_dvi* dvi) {
  int status = morvane_view_first(view, dvi);
  /*@
    loop invariant status == MORVANE_VIEW_OK ==> from_records(view, dvi);
    loop invariant accepted(view) ==>
      status == MORVANE_VIEW_OUT_OF_RANGE || status == MORVANE_VIEW_OK && in_place(view, dvi);
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
          port->reserved[0 .. 1], port->drotate_bit_offset, port->hflip_bit_offset,
          port->vflip_bit_offset, port->dflip_bit_offset, port->pflip_bit_offset, port->sign,
          port->datasize, port->expoffset, port->expbits, port->port_size,
          port->port_byte_offset, port->port_name, port->layer_name;
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
    ensures port->offset == dvi->block + position * PORT_BYTES;
    ensures port_fields(\old(view->bytes) + port->offset, port);
  behavior cut:
    assumes dvi->block + (position + 1) * PORT_BYTES > view->size;
    ensures \result == MORVANE_VIEW_PORTS_CUT;
  complete behaviors;
  disjoint behaviors;
*/
static int load_port(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                     uint64_t position, struct morvane_view_port* port) {
  const uint64_t skipped = position * PORT_BYTES;
  size_t offset = 0;
  if (!has(view, dvi->block, skipped, PORT_BYTES)) {
    return MORVANE_VIEW_PORTS_CUT;
  }
  offset = dvi->block + (size_t)skipped;
  decode_port(view->bytes + offset, port);
  port->offset = offset;
  return MORVANE_VIEW_OK;
}

/*@
  requires true_view(view) && \valid_read(dvi) && \valid(port);
  requires \separated(port, view, dvi, view->bytes + (0 .. view->size - 1));
  assigns *port;
  behavior out_of_range:
    assumes index >= dvi->input_num;
    ensures \result == MORVANE_VIEW_OUT_OF_RANGE;
  behavior inside:
    assumes index < dvi->input_num;
    assumes dvi->block + index * PORT_BYTES + PORT_BYTES <= view->size;
    ensures \result == MORVANE_VIEW_OK;
    ensures port->offset == dvi->block + index * PORT_BYTES;
    ensures port_fields(view->bytes + port->offset, port);
  behavior cut:
    assumes index < dvi->input_num;
    assumes dvi->block + index * PORT_BYTES + PORT_BYTES > view->size;
    ensures !(walked(view) && in_place(view, dvi));
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
    ensures \result == MORVANE_VIEW_OUT_OF_RANGE;
  behavior inside:
    assumes index < dvi->output_num;
    assumes dvi->block + (dvi->input_num + index) * PORT_BYTES + PORT_BYTES <= view->size;
    ensures \result == MORVANE_VIEW_OK;
    ensures port->offset == dvi->block + (dvi->input_num + index) * PORT_BYTES;
    ensures port_fields(view->bytes + port->offset, port);
  behavior cut:
    assumes index < dvi->output_num;
    assumes dvi->block + (dvi->input_num + index) * PORT_BYTES + PORT_BYTES > view->size;
    ensures !(walked(view) && in_place(view, dvi));
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
            view->bytes + (dvi->block + (dvi->input_num + dvi->output_num) * PORT_BYTES);
    ensures image->size == dvi->dvi_img_size;
  behavior cut:
    assumes dvi->block + (dvi->input_num + dvi->output_num) * PORT_BYTES + dvi->dvi_img_size >
            view->size;
    ensures !(walked(view) && in_place(view, dvi));
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
    ensures \result == MORVANE_VIEW_OUT_OF_RANGE;
  behavior inside:
    assumes index < dvi->variable_num;
    assumes dvi->vproc_block + index * VAR_BYTES + VAR_BYTES <= view->size;
    ensures \result == MORVANE_VIEW_OK;
    ensures variable->offset == dvi->vproc_block + index * VAR_BYTES;
    ensures is_text(variable->var.bytes, variable->var.length, view->bytes + variable->offset,
                    MORVANE_NAME_WIDTH);
    ensures variable->boffset == u32(view->bytes + variable->offset + 128);
    ensures variable->bsize == u32(view->bytes + variable->offset + 132);
  behavior cut:
    assumes index < dvi->variable_num;
    assumes dvi->vproc_block + index * VAR_BYTES + VAR_BYTES > view->size;
    ensures !(walked(view) && in_place(view, dvi));
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
    ensures \result == MORVANE_VIEW_OUT_OF_RANGE;
  behavior inside:
    assumes index < dvi->smb_num;
    assumes dvi->vproc_block + dvi->variable_num * VAR_BYTES + index * SMB_BYTES + SMB_BYTES <=
  view->size; ensures \result == MORVANE_VIEW_OK; ensures smb->offset == dvi->vproc_block +
  dvi->variable_num * VAR_BYTES + index * SMB_BYTES; ensures is_text(smb->smb_name.bytes,
  smb->smb_name.length, view->bytes + smb->offset, MORVANE_NAME_WIDTH); ensures
  smb->vbase_byte_offset == u32(view->bytes + smb->offset + 128); behavior cut: assumes index <
  dvi->smb_num; assumes dvi->vproc_block + dvi->variable_num * VAR_BYTES + index * SMB_BYTES +
  SMB_BYTES > view->size; ensures !(walked(view) && in_place(view, dvi)); ensures \result ==
  MORVANE_VIEW_SMBS_CUT; complete behaviors; disjoint behaviors;
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
