#include "view/view_report.h"

/* A text as an argument of %.*s. */
#define TEXT(text) (int)(text).length, (text).bytes

static unsigned bit(const struct morvane_view_port* port, unsigned mask) {
  return (port->flags & mask) != 0 ? 1 : 0;
}

static void print_port(FILE* out, const char* direction, uint32_t id,
                       const struct morvane_view_port* port) {
  fprintf(out, "%s_id: %u\t port_size: %u\t port_byte_offset: %u\t bitvector: %u", direction, id,
          port->port_size, port->port_byte_offset, bit(port, MORVANE_PORT_BITVECTOR));
  fprintf(out, "\t dim: (P, D, H, W) = ( %u, %u, %u, %u)\tpitch: %u\tdram_format: %u", port->P,
          port->D, port->H, port->W, port->pitch, port->dram_format);
  fprintf(out, "\tdata_format: (%u, %u, %d, %u)", port->sign, port->datasize, port->expoffset,
          port->expbits);
  fprintf(out, "\tport rotate bit (p, d, v, h, r): (%u, %u, %u, %u, %u)",
          bit(port, MORVANE_PORT_PFLIP), bit(port, MORVANE_PORT_DFLIP),
          bit(port, MORVANE_PORT_VFLIP), bit(port, MORVANE_PORT_HFLIP),
          bit(port, MORVANE_PORT_DROTATE));
  fprintf(out, "\tport rotate offset(p, d, v, h, r): (%u, %u, %u, %u, %u)", port->pflip_bit_offset,
          port->dflip_bit_offset, port->vflip_bit_offset, port->hflip_bit_offset,
          port->drotate_bit_offset);
  fprintf(out, "\tport_name: %.*s\t", TEXT(port->port_name));
  if (port->layer_name.length > 0) {
    fprintf(out, "(layer_name: %.*s)", TEXT(port->layer_name));
  }
  fprintf(out, "\n");
}

static void print_dvi(FILE* out, const struct morvane_view_dvi* dvi) {
  fprintf(out, "dvi_id: %u\t dvi_img_vaddr: %u\t dvi_img_size: %u\t dvi_dag_vaddr: %u", dvi->dvi_id,
          dvi->dvi_img_vaddr, dvi->dvi_img_size, dvi->dvi_dag_vaddr);
  fprintf(out, "\t input_num: %u\t output_num: %u\t dvi_pkg_size: %u\t dvi_ppv: %u", dvi->input_num,
          dvi->output_num, dvi->dvi_pkg_size, dvi->dvi_ppv);
  fprintf(out, "\t vproc_id: %u\t dag_name: %.*s\n", dvi->vproc_id, TEXT(dvi->dag_name));
}

static int print_ports(FILE* out, const struct morvane_view* view,
                       const struct morvane_view_dvi* dvi) {
  struct morvane_view_port port;
  int status = MORVANE_VIEW_OK;
  uint32_t i = 0;
  fprintf(out, "dvi_id: %u dag_name: %.*s input_num: %u output_num: %u\n", dvi->dvi_id,
          TEXT(dvi->dag_name), dvi->input_num, dvi->output_num);
  for (i = 0; i < dvi->input_num; ++i) {
    status = morvane_view_input(view, dvi, i, &port);
    if (status != MORVANE_VIEW_OK) {
      return status;
    }
    print_port(out, "input", i, &port);
  }
  for (i = 0; i < dvi->output_num; ++i) {
    status = morvane_view_output(view, dvi, i, &port);
    if (status != MORVANE_VIEW_OK) {
      return status;
    }
    print_port(out, "output", i, &port);
  }
  fprintf(out, "\n");
  return MORVANE_VIEW_OK;
}

static int print_vproc(FILE* out, const struct morvane_view* view,
                       const struct morvane_view_dvi* dvi) {
  struct morvane_view_var variable;
  struct morvane_view_smb_block smb;
  int status = MORVANE_VIEW_OK;
  uint32_t i = 0;
  fprintf(out, "vproc_id: %u dag_name: %.*s variable_num: %u smb_num: %u\n\n", dvi->vproc_id,
          TEXT(dvi->dag_name), dvi->variable_num, dvi->smb_num);
  for (i = 0; i < dvi->variable_num; ++i) {
    status = morvane_view_variable(view, dvi, i, &variable);
    if (status != MORVANE_VIEW_OK) {
      return status;
    }
    fprintf(out, "var: %.*s\t boffset = %u\t bsize = %u\n", TEXT(variable.var), variable.boffset,
            variable.bsize);
  }
  fprintf(out, "\n");
  for (i = 0; i < dvi->smb_num; ++i) {
    status = morvane_view_smb(view, dvi, i, &smb);
    if (status != MORVANE_VIEW_OK) {
      return status;
    }
    fprintf(out, "smb_id: %u\t vbase_byte_offset: %u\t smb_name: %.*s\n", i, smb.vbase_byte_offset,
            TEXT(smb.smb_name));
  }
  fprintf(out, "\n");
  return MORVANE_VIEW_OK;
}

typedef int print_records(FILE* out, const struct morvane_view* view,
                          const struct morvane_view_dvi* dvi);

static int print_table_line(FILE* out, const struct morvane_view* view,
                            const struct morvane_view_dvi* dvi) {
  (void)view;
  print_dvi(out, dvi);
  return MORVANE_VIEW_OK;
}

static int for_each_dvi(FILE* out, const struct morvane_view* view, print_records* print) {
  struct morvane_view_dvi dvi;
  int status = morvane_view_first(view, &dvi);
  while (status == MORVANE_VIEW_OK) {
    status = print(out, view, &dvi);
    if (status == MORVANE_VIEW_OK) {
      status = morvane_view_next(view, &dvi);
    }
  }
  return status == MORVANE_VIEW_OUT_OF_RANGE ? MORVANE_VIEW_OK : status;
}

int print_view_report(FILE* out, const struct morvane_view* view) {
  int status = MORVANE_VIEW_OK;
  fprintf(out, "version %u.%u.%u ( HASH %07x ) dvi_num: %u\n\n", view->version >> 24,
          view->version >> 16 & 0xFF, view->version & 0xFFFF, view->HASH, view->dvi_num);
  status = for_each_dvi(out, view, print_table_line);
  fprintf(out, "\n");
  if (status == MORVANE_VIEW_OK) {
    status = for_each_dvi(out, view, print_ports);
  }
  if (status == MORVANE_VIEW_OK && morvane_view_need_vproc(view) == MORVANE_VIEW_OK) {
    status = for_each_dvi(out, view, print_vproc);
  }
  return status;
}
