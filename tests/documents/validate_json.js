// Validates JSON documents: node validate_json.js SCHEMA DOCUMENT ...
// SCHEMA is the path of a JSON Schema 2020-12, or "sarif" for SARIF 2.1.0 as it was published. Tells what is
// wrong with the first document that does not fit and ends with the status 1.
'use strict';
const fs = require('fs');
const path = require('path');
const packages = path.join(process.cwd(), 'node_modules');
const load = (name) => require(path.join(packages, name));

const sarif = path.join(packages, '@microsoft/jest-sarif/lib/schemas/sarif-2.1.0-rtm.5.json');
const [chosen, ...documents] = process.argv.slice(2);
const isSarif = chosen === 'sarif';
const schema = JSON.parse(fs.readFileSync(isSarif ? sarif : chosen, 'utf8'));

// SARIF is published as a schema of draft 4.
const Ajv = load(isSarif ? 'ajv-draft-04' : 'ajv/dist/2020');
const ajv = new Ajv({ strict: !isSarif, strictTypes: false, strictRequired: false, unicodeRegExp: false });
load('ajv-formats')(ajv);
const fits = ajv.compile(schema);

for (const document of documents) {
  // A document that is not UTF-8 throws here, and so does one that is not JSON.
  const text = new TextDecoder('utf-8', { fatal: true }).decode(fs.readFileSync(document));
  if (!fits(JSON.parse(text))) {
    console.error(`${document}: ${ajv.errorsText(fits.errors)}`);
    process.exit(1);
  }
}
