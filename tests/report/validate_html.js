// Validates pages: node validate_html.js PAGE ...
// Each must be valid HTML 5, and its Content-Security-Policy must allow its style sheet and nothing else.
// Tells what is wrong and ends with the status 1.
'use strict';
const crypto = require('crypto');
const fs = require('fs');
const path = require('path');
const packages = path.join(process.cwd(), 'node_modules');
const { HtmlValidate, StaticConfigLoader } = require(path.join(packages, 'html-validate'));

const validator = new HtmlValidate(new StaticConfigLoader({ extends: ['html-validate:standard'] }));

const policyOf = (style) => {
  const hash = crypto.createHash('sha256').update(style).digest('base64');
  return `default-src 'none'; style-src 'sha256-${hash}'; base-uri 'none'; form-action 'none'`;
};

const faultsOf = (page) => {
  // Bytes that are not UTF-8 throw here.
  const text = new TextDecoder('utf-8', { fatal: true }).decode(fs.readFileSync(page));
  const faults = [];
  for (const result of validator.validateStringSync(text).results) {
    faults.push(...result.messages.map((fault) => `${fault.line}: ${fault.message} (${fault.ruleId})`));
  }
  const styles = [...text.matchAll(/<style>([^]*?)<\/style>/g)];
  if (styles.length !== 1 || !text.includes(`content="${policyOf(styles[0][1])}"`)) {
    faults.push('the policy does not fit the style sheet');
  }
  return faults;
};

for (const page of process.argv.slice(2)) {
  const faults = faultsOf(page);
  if (faults.length > 0) {
    console.error(`${page}:\n${faults.slice(0, 20).join('\n')}`);
    process.exitCode = 1;
  }
}
