meta:
  id: morvane_package
  title: morvane_gen package
  application: morvane_gen
  file-extension: bin
  endian: le
  bit-endian: le
  encoding: UTF-8
doc: |
  Images compiled from a neural network's DAGs, with the descriptions of their ports. Texts are UTF-8; the
  tool does not check them. Bytes after the DVI blocks are the vproc section. A package that was cut exactly
  after its DVI blocks therefore looks like one without a vproc section. Refuse bytes after the last record.
seq:
  - id: header
    type: pkg_header
  - id: dvis
    type: dvi_desc
    repeat: expr
    repeat-expr: header.dvi_num
  - id: dvi_blocks
    type: dvi_block(dvis[_index])
    repeat: expr
    repeat-expr: header.dvi_num
  - id: vproc_section
    type: vproc_section(header.dvi_num)
    if: not _io.eof
types:
  pkg_header:
    doc: 12 bytes
    seq:
      - id: version_patch
        type: u2
      - id: version_minor
        type: u1
      - id: version_major
        type: u1
      - id: hash
        type: u4
        doc: source revision of the tool that wrote the package, as a number
      - id: dvi_num
        type: u4

  dvi_desc:
    doc: 156 bytes, one per DVI
    seq:
      - id: dvi_id
        type: u1
        doc: low byte of the file index
      - id: vproc_id
        type: u1
        doc: low byte of the position in the package
      - id: dvi_ppv
        type: u1
        doc: use of ping-pong vector memory
      - id: reserved
        size: 1
      - id: dvi_img_vaddr
        type: u4
        doc: address in the target's memory plan
      - id: dvi_img_size
        type: u4
        doc: bytes
      - id: dvi_dag_vaddr
        type: u4
        doc: address in the target's memory plan
      - id: input_num
        type: u4
      - id: output_num
        type: u4
      - id: dvi_pkg_size
        type: u4
        doc: size of the DVI's block in bytes, modulo 2^32
      - id: dag_name
        type: strz
        size: 128

  dvi_block:
    doc: the ports of a DVI and its image
    params:
      - id: dvi
        type: dvi_desc
    seq:
      - id: inputs
        type: port_desc
        repeat: expr
        repeat-expr: dvi.input_num
      - id: outputs
        type: port_desc
        repeat: expr
        repeat-expr: dvi.output_num
      - id: image
        size: dvi.dvi_img_size

  port_desc:
    doc: 1080 bytes, one per port
    seq:
      - id: p
        type: u4
      - id: d
        type: u4
      - id: h
        type: u4
      - id: w
        type: u4
      - id: pitch
        type: u4
        doc: bytes
      - id: dram_format
        type: u1
      - id: bitvector
        type: b1
      - id: drotate
        type: b1
      - id: hflip
        type: b1
      - id: vflip
        type: b1
      - id: dflip
        type: b1
      - id: pflip
        type: b1
      - id: reserved_bits
        type: b2
      - id: reserved
        size: 2
      - id: drotate_bit_offset
        type: u4
      - id: hflip_bit_offset
        type: u4
      - id: vflip_bit_offset
        type: u4
      - id: dflip_bit_offset
        type: u4
      - id: pflip_bit_offset
        type: u4
      - id: sign
        type: u1
        doc: 255 when not given
      - id: datasize
        type: u1
        doc: 255 when not given
      - id: expoffset
        type: s1
        doc: -1 when not given
      - id: expbits
        type: u1
        doc: 255 when not given
      - id: port_size
        type: u4
        doc: bytes
      - id: port_byte_offset
        type: u4
        doc: bytes
      - id: port_name
        type: strz
        size: 512
      - id: layer_name
        type: strz
        size: 512
        doc: empty when not given

  vproc_section:
    doc: the vproc records of all DVIs, in the order of the DVI table
    params:
      - id: dvi_num
        type: u4
    seq:
      - id: vprocs
        type: vproc_desc
        repeat: expr
        repeat-expr: dvi_num
      - id: vproc_blocks
        type: vproc_block(vprocs[_index])
        repeat: expr
        repeat-expr: dvi_num

  vproc_desc:
    doc: 12 bytes, one per DVI
    seq:
      - id: variable_num
        type: u4
      - id: smb_num
        type: u4
      - id: vproc_records_size
        type: u4
        doc: size of the vproc block in bytes, modulo 2^32

  vproc_block:
    doc: the self-defined variables and the SMB blocks of a DVI
    params:
      - id: vproc
        type: vproc_desc
    seq:
      - id: variables
        type: var_desc
        repeat: expr
        repeat-expr: vproc.variable_num
      - id: smbs
        type: smb_desc
        repeat: expr
        repeat-expr: vproc.smb_num

  var_desc:
    doc: 136 bytes, one per variable
    seq:
      - id: var
        type: strz
        size: 128
      - id: boffset
        type: u4
        doc: bits
      - id: bsize
        type: u4
        doc: bits

  smb_desc:
    doc: 132 bytes, one per SMB block
    seq:
      - id: smb_name
        type: strz
        size: 128
      - id: vbase_byte_offset
        type: u4
        doc: bytes
