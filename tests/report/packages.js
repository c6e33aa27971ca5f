// Writes packages whose pages are looked at: node packages.js KIND FILE
// KIND is a number of DVIs, which makes a network of so many parts, or one of the names at the end.
'use strict';
const fs = require('fs');

const record = (width, fill) => {
  const bytes = Buffer.alloc(width);
  fill(bytes);
  return bytes;
};
const text = (bytes, value, at) => Buffer.from(value).copy(bytes, at);

const header = (dvis) =>
  record(12, (bytes) => {
    bytes.writeUInt32LE(0x02010006, 0);
    bytes.writeUInt32LE(0x0b3b3814, 4);
    bytes.writeUInt32LE(dvis, 8);
  });

const dviRecord = (dvi, position) =>
  record(156, (bytes) => {
    const ports = dvi.inputs.length + dvi.outputs.length;
    bytes.writeUInt8(position & 0xff, 0);
    bytes.writeUInt8(position & 0xff, 1);
    bytes.writeUInt8(position % 2, 2);
    const binary = (dvi.address + (dvi.binary ?? 256)) >>> 0;
    const words = [dvi.address, dvi.image, binary, dvi.inputs.length];
    words.push(dvi.outputs.length, dvi.image + 1080 * ports);
    words.forEach((word, i) => bytes.writeUInt32LE(word, 4 + 4 * i));
    text(bytes, dvi.name, 28);
  });

const portRecord = (port) =>
  record(1080, (bytes) => {
    [...port.dims, (port.dims[3] * 2) >>> 0].forEach((dim, i) => bytes.writeUInt32LE(dim, 4 * i));
    bytes.writeUInt8(port.format ?? 1, 20);
    bytes.writeUInt8(port.flags ?? 0, 21);
    [1, 8, 0xfc, 0].forEach((byte, i) => bytes.writeUInt8(byte, 44 + i));
    bytes.writeUInt32LE(port.size, 48);
    bytes.writeUInt32LE(port.offset, 52);
    text(bytes, port.name, 56);
    text(bytes, port.layer ?? '', 568);
  });

const vprocRecord = (dvi) =>
  record(12, (bytes) => {
    const [variables, smbs] = [dvi.variables ?? [], dvi.smbs ?? []];
    bytes.writeUInt32LE(variables.length, 0);
    bytes.writeUInt32LE(smbs.length, 4);
    bytes.writeUInt32LE(136 * variables.length + 132 * smbs.length, 8);
  });

const named = (width, values) => (item, i) =>
  record(width, (bytes) => {
    text(bytes, item, 0);
    values(i).forEach((value, k) => bytes.writeUInt32LE(value, 128 + 4 * k));
  });

const packageOf = (dvis, withVproc) => {
  const parts = [header(dvis.length), ...dvis.map(dviRecord)];
  for (const dvi of dvis) {
    parts.push(...dvi.inputs.map(portRecord), ...dvi.outputs.map(portRecord), Buffer.alloc(dvi.image, 0xa5));
  }
  if (withVproc) {
    parts.push(...dvis.map(vprocRecord));
    for (const dvi of dvis) {
      parts.push(...(dvi.variables ?? []).map(named(136, (i) => [16 * i, 16])));
      parts.push(...(dvi.smbs ?? []).map(named(132, (i) => [1024 * i])));
    }
  }
  return Buffer.concat(parts);
};

// The same numbers every time.
const numbers = () => {
  let state = 12345;
  return (limit) => {
    state = (Math.imul(state, 1103515245) + 12345) & 0x7fffffff;
    return Math.floor((state / 0x80000000) * limit);
  };
};

// A network of parts that hand tensors on: to the next part, some over a few parts, some to the outside.
const network = (count) => {
  const pick = numbers();
  const stages = ['stem', 'block', 'down', 'neck', 'head'];
  const largest = count > 500 ? 3000 : 400000;
  const kept = [];
  const dvis = [];
  let address = 0x90000000;
  let offset = 0;
  const tensor = (name, layer) => {
    const dims = [1, 8 * (1 + pick(32)), 1 + pick(112), 1 + pick(112)];
    const size = Math.ceil((dims[1] * dims[2] * dims[3]) / 64) * 64;
    offset = offset > 4 << 20 ? 0 : offset;
    const port = { name, layer, dims, size, offset, format: pick(5) };
    offset += size;
    return port;
  };
  for (let i = 0; i < count; ++i) {
    const stage = stages[Math.min(4, Math.floor((5 * i) / count))];
    const inputs = i === 0 ? [tensor('image', 'input/image')] : [dvis[i - 1].outputs[0]];
    const outputs = [tensor(`${stage}_${i}_relu`, `backbone/${stage}/${i}/conv2d/relu`)];
    if (kept.length > 0 && pick(4) === 0) {
      inputs.push(kept[pick(kept.length)]);
    }
    if (pick(4) === 0 && i < count - 1) {
      outputs.push(tensor(`${stage}_${i}_skip`, `backbone/${stage}/${i}/add/skip`));
      kept.push(outputs[1]);
      kept.splice(0, kept.length - 4);
    }
    if (i === count - 1) {
      outputs.push(tensor('scores', 'head/softmax'));
    }
    const image = 64 * (4 + pick(pick(12) === 0 ? largest / 64 : largest / 640));
    const variables = pick(2) ? ['vp_gain', 'vp_floor', 'vp_hold_frames'].slice(pick(3)) : [];
    const smbs = pick(3) ? ['window', 'lut_tanh'].slice(pick(2)) : [];
    dvis.push({ name: `detector_split_${i}`, inputs, outputs, image, address, variables, smbs });
    address += Math.ceil(image / 4096) * 4096 + (pick(9) === 0 ? 1 << 22 : 0);
    address = address > 0xf0000000 ? 0x90000000 : address;
  }
  return dvis;
};

// What somebody changed in a network of 30 parts.
const changedNetwork = () => {
  const dvis = network(30);
  dvis[3] = { ...dvis[3], image: dvis[3].image + 640 };
  dvis[7].outputs[0] = { ...dvis[7].outputs[0], dims: [1, 24, 56, 56] };
  dvis[12] = { ...dvis[12], address: dvis[11].address + 64 };
  dvis[20] = { ...dvis[20], name: 'detector_extra' };
  dvis[25] = { ...dvis[25], variables: ['vp_new'] };
  return dvis;
};

const hostileNames = [
  '<script>fetch("http://127.0.0.1:9/")</script>',
  '"><img src=x onerror=console.log(1)>',
  "'/><svg onload=console.log(2)>",
  '</title></style></textarea>]]>--><b>bold',
  '&lt;&amp;&#x3c;script&#x3e;',
  'javascript:console.log(3)',
  '\u202egnp.exe\u202c \u2067\u05d0\u05d1\u05d2 abc',
  '\u05e9\u05dc\u05d5\u05dd_\u0645\u0631\u062d\u0628\u0627_1',
  Buffer.from([0x62, 0xff, 0xfe, 0xc3, 0x28, 0xed, 0xa0, 0x80]),
  'tab\there\nline\x1b[31mred\x7f\u0085',
  'W'.repeat(127),
  '\u{1f600}\u4e2d\u6587\u0301\u0301 \u200b\u00a0',
  'expression(alert(1)); } body { display: none',
  '{{7*7}}${7*7}<%= 7 %>',
  ' two  spaces  ',
];

const hostile = () =>
  hostileNames.map((name, i) => {
    const port = (other, more) => ({ name: other, layer: other, dims: [1, 2, 3, 4], size: 64, offset: 48 * i, ...more });
    const longest = i === 10 ? 'W'.repeat(511) : name;
    return {
      name,
      inputs: [port(hostileNames[Math.max(0, i - 1)], { dims: [1, 2, 3, 4 + (i % 3)] })],
      outputs: [port(longest), port(longest, { dims: Array(4).fill(0xffffffff), size: 0xffffffff, offset: 0xffffffff, flags: 63 })],
      image: 100 + i,
      address: i % 4 === 0 ? 0xffffffff : 0x1000 + 64 * i,
      binary: i % 3 === 0 ? 0 : 1000,
      variables: [name, name],
      smbs: [name],
    };
  });

// More than has room on the page: many DVIs without ports, and long names.
const crowded = () =>
  Array.from({ length: 40 }, (_, i) => {
    const [variables, smbs] = ['<', '"'].map((character) => Array(20).fill(character.repeat(127)));
    return { name: '&'.repeat(127), inputs: [], outputs: [], image: 100, address: 0x1000 + 64 * i, variables, smbs };
  });

const kinds = {
  empty: () => header(0),
  hostile: () => packageOf(hostile(), true),
  crowded: () => packageOf(crowded(), true),
  changed: () => packageOf(changedNetwork(), true),
  bare: () => packageOf([{ name: 'bare', inputs: [], outputs: [], image: 0, address: 0 }], false),
};

const [kind, file] = process.argv.slice(2);
fs.writeFileSync(file, kinds[kind] ? kinds[kind]() : packageOf(network(Number(kind)), true));
