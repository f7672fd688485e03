'use strict';
// sum.js TRACE ROOT UNREACHED: prints the table of TRACE by folder, for the product's own portable
// sources below ROOT, and writes what nothing reaches to the file UNREACHED.
const fs = require('fs');
const { filesOf, table, unreached } = require('./reached.js');

const [trace, root, list] = process.argv.slice(2);
const files = filesOf(fs.readFileSync(trace, 'utf8'), root, path => /^(src|host|tools\/zvdb)\//.test(path));
if (files.size === 0) {
  console.error('the report names no source of the product');
  process.exit(1);
}
fs.writeFileSync(list, unreached(files).join('\n') + '\n');
console.log(table(files));
