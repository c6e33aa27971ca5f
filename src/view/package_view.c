/*
 * The reader of packages. The comments that begin with an @ are contracts: scripts/prove.sh proves
 * that every function keeps its own, for every package.
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

/* Decodes a little-endian word. */
static uint32_t word(const uint8_t* at) {
  return at[0] + ((uint32_t)at[1] << 8) + ((uint32_t)at[2] << 16) + ((uint32_t)at[3] << 24);
}

static uint64_t port_bytes(uint32_t input_num, uint32_t output_num) {
  return ((uint64_t)input_num + output_num) * PORT_BYTES;
}

static uint64_t vproc_bytes(uint32_t variable_num, uint32_t smb_num) {
  return (uint64_t)variable_num * VAR_BYTES + (uint64_t)smb_num * SMB_BYTES;
}

/* Whether the view has so many bytes from begin + skipped on. */
static int has(const struct morvane_view* view, size_t begin, uint64_t skipped, uint64_t bytes) {
  return begin <= view->size && skipped <= view->size - begin &&
         bytes <= view->size - begin - skipped;
}

/* Describes a damage where somebody asks for it, and returns its status. */
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

/* Checks the DVI blocks one after the other, from *at to *at. */
static int check_dvis(struct morvane_view* view, size_t* at, struct morvane_view_damage* damage) {
  const uint8_t* const bytes = view->bytes;
  const uint32_t dvi_num = view->dvi_num;
  size_t offset = HEADER_BYTES;
  size_t begin = HEADER_BYTES + (size_t)dvi_num * DVI_BYTES;
  uint32_t i = 0;
  for (i = 0; i < dvi_num; ++i) {
    const uint8_t* const dvi = bytes + offset;
    const uint32_t said = word(dvi + offsetof(struct morvane_dvi_desc, dvi_pkg_size));
    const uint32_t image = word(dvi + offsetof(struct morvane_dvi_desc, dvi_img_size));
    const uint64_t ports = port_bytes(word(dvi + offsetof(struct morvane_dvi_desc, input_num)),
                                      word(dvi + offsetof(struct morvane_dvi_desc, output_num)));
    const uint64_t left = view->size - begin;
    if ((uint32_t)(ports + image) != said) {
      return refuse(damage, MORVANE_VIEW_BLOCK_SIZE_DISAGREES, i,
                    offset + offsetof(struct morvane_dvi_desc, dvi_pkg_size), said, ports + image);
    }
    if (ports > left) {
      return refuse(damage, MORVANE_VIEW_PORTS_CUT, i, begin, ports, left);
    }
    if (image > left - ports) {
      return refuse(damage, MORVANE_VIEW_IMAGE_CUT, i, begin + (size_t)ports, image, left - ports);
    }
    begin += (size_t)(ports + image);
    offset += DVI_BYTES;
    view->sound_dvis = i + 1;
  }
  *at = begin;
  return MORVANE_VIEW_OK;
}

/* Checks the vproc blocks one after the other, from behind their table at table to *at. */
static int check_vprocs(struct morvane_view* view, size_t table, size_t* at,
                        struct morvane_view_damage* damage) {
  const uint8_t* const bytes = view->bytes;
  const uint32_t dvi_num = view->dvi_num;
  size_t offset = table;
  size_t begin = 0;
  uint32_t i = 0;
  if ((uint64_t)dvi_num * VPROC_BYTES > view->size - table) {
    return refuse(damage, MORVANE_VIEW_VPROC_TABLE_CUT, 0, table, (uint64_t)dvi_num * VPROC_BYTES,
                  view->size - table);
  }
  begin = table + (size_t)dvi_num * VPROC_BYTES;
  view->vproc_table = table;
  for (i = 0; i < dvi_num; ++i) {
    const uint8_t* const vproc = bytes + offset;
    const uint32_t said = word(vproc + offsetof(struct morvane_vproc_desc, vproc_records_size));
    const uint64_t variables =
        vproc_bytes(word(vproc + offsetof(struct morvane_vproc_desc, variable_num)), 0);
    const uint64_t smbs =
        vproc_bytes(0, word(vproc + offsetof(struct morvane_vproc_desc, smb_num)));
    const uint64_t left = view->size - begin;
    if ((uint32_t)(variables + smbs) != said) {
      return refuse(damage, MORVANE_VIEW_VPROC_SIZE_DISAGREES, i,
                    offset + offsetof(struct morvane_vproc_desc, vproc_records_size), said,
                    variables + smbs);
    }
    if (variables > left) {
      return refuse(damage, MORVANE_VIEW_VARIABLES_CUT, i, begin, variables, left);
    }
    if (smbs > left - variables) {
      return refuse(damage, MORVANE_VIEW_SMBS_CUT, i, begin + (size_t)variables, smbs,
                    left - variables);
    }
    begin += (size_t)(variables + smbs);
    offset += VPROC_BYTES;
    view->sound_vprocs = i + 1;
  }
  *at = begin;
  return MORVANE_VIEW_OK;
}

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
    status = check_vprocs(view, at, &at, damage);
  }
  if (status == MORVANE_VIEW_OK && at < size) {
    status = refuse(damage, MORVANE_VIEW_BYTES_LEFT_OVER, 0, at, 0, size - at);
  }
  return status;
}

int morvane_view_need_vproc(const struct morvane_view* view) {
  return view->vproc_table != 0 ? MORVANE_VIEW_OK : MORVANE_VIEW_NO_VPROC;
}

/* The number of characters before the first NUL of a field, or its width. */
static size_t text_length(const uint8_t* field, size_t width) {
  size_t length = 0;
  while (length < width && field[length] != 0) {
    ++length;
  }
  return length;
}

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

/* The vproc of a DVI; a record of NULL stands for none. */
static void decode_vproc(const uint8_t* record, struct morvane_view_dvi* dvi) {
  dvi->variable_num = 0;
  dvi->smb_num = 0;
  dvi->vproc_records_size = 0;
  if (record != NULL) {
    dvi->variable_num = word(record + offsetof(struct morvane_vproc_desc, variable_num));
    dvi->smb_num = word(record + offsetof(struct morvane_vproc_desc, smb_num));
    dvi->vproc_records_size =
        word(record + offsetof(struct morvane_vproc_desc, vproc_records_size));
  }
}

/* The DVI at a position, whose blocks begin at the given offsets. */
static int load_dvi(const struct morvane_view* view, uint32_t position, size_t block,
                    size_t vproc_block, struct morvane_view_dvi* dvi) {
  const int with_vproc = position < view->sound_vprocs;
  const uint64_t desc = (uint64_t)position * DVI_BYTES;
  const uint64_t vproc = (uint64_t)position * VPROC_BYTES;
  if (position >= view->sound_dvis) {
    return MORVANE_VIEW_OUT_OF_RANGE;
  }
  if (!has(view, HEADER_BYTES, desc, DVI_BYTES)) {
    return MORVANE_VIEW_DVI_TABLE_CUT;
  }
  if (with_vproc && !has(view, view->vproc_table, vproc, VPROC_BYTES)) {
    return MORVANE_VIEW_VPROC_TABLE_CUT;
  }
  dvi->position = position;
  dvi->offset = HEADER_BYTES + (size_t)desc;
  dvi->block = block;
  dvi->vproc_offset = with_vproc ? view->vproc_table + (size_t)vproc : 0;
  dvi->vproc_block = with_vproc ? vproc_block : 0;
  decode_dvi(view->bytes + dvi->offset, dvi);
  decode_vproc(with_vproc ? view->bytes + dvi->vproc_offset : NULL, dvi);
  return MORVANE_VIEW_OK;
}

int morvane_view_first(const struct morvane_view* view, struct morvane_view_dvi* dvi) {
  const uint64_t table = (uint64_t)view->dvi_num * DVI_BYTES;
  const uint64_t vproc_table = (uint64_t)view->dvi_num * VPROC_BYTES;
  if (!has(view, HEADER_BYTES, table, 0)) {
    return MORVANE_VIEW_DVI_TABLE_CUT;
  }
  if (!has(view, view->vproc_table, vproc_table, 0)) {
    return MORVANE_VIEW_VPROC_TABLE_CUT;
  }
  return load_dvi(view, 0, HEADER_BYTES + (size_t)table, view->vproc_table + (size_t)vproc_table,
                  dvi);
}

int morvane_view_next(const struct morvane_view* view, struct morvane_view_dvi* dvi) {
  const uint64_t ports = port_bytes(dvi->input_num, dvi->output_num);
  const uint64_t vproc = vproc_bytes(dvi->variable_num, dvi->smb_num);
  if (dvi->position == UINT32_MAX) {
    return MORVANE_VIEW_OUT_OF_RANGE;
  }
  if (!has(view, dvi->block, ports, dvi->dvi_img_size)) {
    return MORVANE_VIEW_IMAGE_CUT;
  }
  if (!has(view, dvi->vproc_block, vproc, 0)) {
    return MORVANE_VIEW_SMBS_CUT;
  }
  return load_dvi(view, dvi->position + 1, dvi->block + (size_t)ports + dvi->dvi_img_size,
                  dvi->vproc_block + (size_t)vproc, dvi);
}

int morvane_view_find(const struct morvane_view* view, const char* dag_name,
                      struct morvane_view_dvi* dvi) {
  int status = morvane_view_first(view, dvi);
  while (status == MORVANE_VIEW_OK && !morvane_text_equals(dvi->dag_name, dag_name)) {
    status = morvane_view_next(view, dvi);
  }
  return status == MORVANE_VIEW_OUT_OF_RANGE ? MORVANE_VIEW_NOT_FOUND : status;
}

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
  port->expoffset = (int8_t)record[offsetof(struct morvane_port_desc, expoffset)];
  port->expbits = record[offsetof(struct morvane_port_desc, expbits)];
  port->port_size = word(record + offsetof(struct morvane_port_desc, port_size));
  port->port_byte_offset = word(record + offsetof(struct morvane_port_desc, port_byte_offset));
  port->port_name.bytes = (const char*)port_name;
  port->port_name.length = text_length(port_name, MORVANE_IO_NAME_WIDTH);
  port->layer_name.bytes = (const char*)layer_name;
  port->layer_name.length = text_length(layer_name, MORVANE_IO_NAME_WIDTH);
}

/* The port at a position of a DVI's input and output ports together. */
static int load_port(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                     uint64_t position, struct morvane_view_port* port) {
  const uint64_t skipped = position * PORT_BYTES;
  if (!has(view, dvi->block, skipped, PORT_BYTES)) {
    return MORVANE_VIEW_PORTS_CUT;
  }
  port->offset = dvi->block + (size_t)skipped;
  decode_port(view->bytes + port->offset, port);
  return MORVANE_VIEW_OK;
}

int morvane_view_input(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                       uint32_t index, struct morvane_view_port* port) {
  if (index >= dvi->input_num) {
    return MORVANE_VIEW_OUT_OF_RANGE;
  }
  return load_port(view, dvi, index, port);
}

int morvane_view_output(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                        uint32_t index, struct morvane_view_port* port) {
  if (index >= dvi->output_num) {
    return MORVANE_VIEW_OUT_OF_RANGE;
  }
  return load_port(view, dvi, (uint64_t)dvi->input_num + index, port);
}

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

int morvane_view_variable(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                          uint32_t index, struct morvane_view_var* variable) {
  const uint64_t skipped = vproc_bytes(index, 0);
  const uint8_t* record = NULL;
  if (index >= dvi->variable_num) {
    return MORVANE_VIEW_OUT_OF_RANGE;
  }
  if (!has(view, dvi->vproc_block, skipped, VAR_BYTES)) {
    return MORVANE_VIEW_VARIABLES_CUT;
  }
  variable->offset = dvi->vproc_block + (size_t)skipped;
  record = view->bytes + variable->offset;
  variable->var.bytes = (const char*)record + offsetof(struct morvane_var_desc, var);
  variable->var.length =
      text_length(record + offsetof(struct morvane_var_desc, var), MORVANE_NAME_WIDTH);
  variable->boffset = word(record + offsetof(struct morvane_var_desc, boffset));
  variable->bsize = word(record + offsetof(struct morvane_var_desc, bsize));
  return MORVANE_VIEW_OK;
}

int morvane_view_smb(const struct morvane_view* view, const struct morvane_view_dvi* dvi,
                     uint32_t index, struct morvane_view_smb_block* smb) {
  const uint64_t skipped = vproc_bytes(dvi->variable_num, index);
  const uint8_t* record = NULL;
  if (index >= dvi->smb_num) {
    return MORVANE_VIEW_OUT_OF_RANGE;
  }
  if (!has(view, dvi->vproc_block, skipped, SMB_BYTES)) {
    return MORVANE_VIEW_SMBS_CUT;
  }
  smb->offset = dvi->vproc_block + (size_t)skipped;
  record = view->bytes + smb->offset;
  smb->smb_name.bytes = (const char*)record + offsetof(struct morvane_smb_desc, smb_name);
  smb->smb_name.length =
      text_length(record + offsetof(struct morvane_smb_desc, smb_name), MORVANE_NAME_WIDTH);
  smb->vbase_byte_offset = word(record + offsetof(struct morvane_smb_desc, vbase_byte_offset));
  return MORVANE_VIEW_OK;
}

int morvane_text_equals(struct morvane_text text, const char* string) {
  size_t i = 0;
  for (i = 0; i < text.length; ++i) {
    if (string[i] == '\0' || string[i] != text.bytes[i]) {
      return 0;
    }
  }
  return string[text.length] == '\0';
}
