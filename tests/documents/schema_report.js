// Compiles the package schema, reads a package with the resulting parser, and prints its records in the
// words of the tool's report.
//
//     node schema_report.js SCHEMA PACKAGE plain|vproc IMAGES
//
// The third argument says whether the parser must find a vproc section. IMAGES is the folder of the images
// that were packed, named after the DAGs.
const assert = require('assert');
const fs = require('fs');
const Module = require('module');
const path = require('path');

const fromBuild = Module.createRequire(path.resolve('package.json'));
const compiler = fromBuild('kaitai-struct-compiler');
const KaitaiStream = fromBuild('kaitai-struct/KaitaiStream');
const yaml = fromBuild('js-yaml');

async function compileSchema(schemaPath) {
  const schema = yaml.load(fs.readFileSync(schemaPath, 'utf8'));
  const files = await compiler.compile('javascript', schema, null, false);
  const [name] = Object.keys(files);
  const compiled = new Module(name);
  compiled.paths = Module._nodeModulePaths(process.cwd());
  compiled._compile(files[name], path.resolve(name));
  return Object.values(compiled.exports)[0];
}

const bits = (...flags) => flags.map(Number).join(', ');

function portLine(direction, port, id) {
  const layer = port.layerName === '' ? '' : `(layer_name: ${port.layerName})`;
  return [
    `${direction}_id: ${id}`,
    ` port_size: ${port.portSize}`,
    ` port_byte_offset: ${port.portByteOffset}`,
    ` bitvector: ${bits(port.bitvector)}`,
    ` dim: (P, D, H, W) = ( ${port.p}, ${port.d}, ${port.h}, ${port.w})`,
    `pitch: ${port.pitch}`,
    `dram_format: ${port.dramFormat}`,
    `data_format: (${port.sign}, ${port.datasize}, ${port.expoffset}, ${port.expbits})`,
    'port rotate bit (p, d, v, h, r): (' +
      `${bits(port.pflip, port.dflip, port.vflip, port.hflip, port.drotate)})`,
    'port rotate offset(p, d, v, h, r): (' +
      `${port.pflipBitOffset}, ${port.dflipBitOffset}, ${port.vflipBitOffset}, ` +
      `${port.hflipBitOffset}, ${port.drotateBitOffset})`,
    `port_name: ${port.portName}`,
    layer,
  ].join('\t');
}

function dviLine(dvi) {
  return [
    `dvi_id: ${dvi.dviId}`,
    ` dvi_img_vaddr: ${dvi.dviImgVaddr}`,
    ` dvi_img_size: ${dvi.dviImgSize}`,
    ` dvi_dag_vaddr: ${dvi.dviDagVaddr}`,
    ` input_num: ${dvi.inputNum}`,
    ` output_num: ${dvi.outputNum}`,
    ` dvi_pkg_size: ${dvi.dviPkgSize}`,
    ` dvi_ppv: ${dvi.dviPpv}`,
    ` vproc_id: ${dvi.vprocId}`,
    ` dag_name: ${dvi.dagName}`,
  ].join('\t');
}

function dviBlockLines(dvi, block) {
  return [
    `dvi_id: ${dvi.dviId} dag_name: ${dvi.dagName} input_num: ${dvi.inputNum} ` +
      `output_num: ${dvi.outputNum}`,
    ...block.inputs.map((port, id) => portLine('input', port, id)),
    ...block.outputs.map((port, id) => portLine('output', port, id)),
    '',
  ];
}

function vprocBlockLines(dvi, vproc, block) {
  return [
    `vproc_id: ${dvi.vprocId} dag_name: ${dvi.dagName} variable_num: ${vproc.variableNum} ` +
      `smb_num: ${vproc.smbNum}`,
    '',
    ...block.variables.map((v) => `var: ${v.var}\t boffset = ${v.boffset}\t bsize = ${v.bsize}`),
    '',
    ...block.smbs.map((smb, id) => `smb_id: ${id}\t vbase_byte_offset: ${smb.vbaseByteOffset}` +
      `\t smb_name: ${smb.smbName}`),
    '',
  ];
}

function vprocs(parsed) {
  return parsed.vprocSection === undefined ? [] : parsed.vprocSection.vprocs;
}

function reportLines(parsed) {
  const { versionMajor, versionMinor, versionPatch, hash, dviNum } = parsed.header;
  return [
    `version ${versionMajor}.${versionMinor}.${versionPatch} ` +
      `( HASH ${hash.toString(16).padStart(7, '0')} ) dvi_num: ${dviNum}`,
    '',
    ...parsed.dvis.map(dviLine),
    '',
    ...parsed.dvis.flatMap((dvi, i) => dviBlockLines(dvi, parsed.dviBlocks[i])),
    ...vprocs(parsed).flatMap((vproc, i) =>
      vprocBlockLines(parsed.dvis[i], vproc, parsed.vprocSection.vprocBlocks[i])),
  ];
}

// Checks what the report does not print.
function checkTheRest(parsed, images) {
  parsed.dvis.forEach((dvi, i) => {
    const image = fs.readFileSync(path.join(images, `${dvi.dagName}.dvi`));
    assert(image.equals(parsed.dviBlocks[i].image), `image of ${dvi.dagName}`);
    assert.deepStrictEqual([...dvi.reserved], [0]);
    for (const port of [...parsed.dviBlocks[i].inputs, ...parsed.dviBlocks[i].outputs]) {
      assert.deepStrictEqual([port.reservedBits, ...port.reserved], [0, 0, 0]);
    }
  });
  for (const vproc of vprocs(parsed)) {
    assert.strictEqual(vproc.vprocRecordsSize, 136 * vproc.variableNum + 132 * vproc.smbNum);
  }
  assert(parsed._io.isEof(), 'bytes after the last record');
}

async function main([schema, packagePath, section, images]) {
  const MorvanePackage = await compileSchema(schema);
  const stream = new KaitaiStream(fs.readFileSync(packagePath));
  const parsed = new MorvanePackage(stream);
  assert.strictEqual(vprocs(parsed).length, section === 'vproc' ? parsed.header.dviNum : 0);
  checkTheRest(parsed, images);
  console.log(reportLines(parsed).join('\n'));
}

main(process.argv.slice(2)).catch((error) => {
  console.error(error);
  process.exit(1);
});
