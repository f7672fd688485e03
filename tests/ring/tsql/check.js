// check.js SENT REFUSED: each statement of SENT must be one that SQL Server reads, each of REFUSED one
// that it does not, which shows that the check can fail. A line is a name, " :: " and a statement.
'use strict';

const fs = require('fs');
const {faultsOf} = require('./grammar.js');

const FEWEST = 100;  // far fewer than there are
let passed = 0;
let failed = 0;

function check(holds, message) {
  if (holds) {
    passed++;
  } else {
    failed++;
    console.log('FAILED: ' + message);
  }
}

function read(file) {
  return fs.readFileSync(file, 'utf8').split('\n').filter(line => line.includes(' :: ')).map(line => {
    const at = line.indexOf(' :: ');
    return {name: line.slice(0, at), sql: line.slice(at + 4)};
  });
}

const sent = read(process.argv[2]);
const refused = read(process.argv[3]);
check(sent.length >= FEWEST, `only ${sent.length} statements`);
check(refused.length > 0, 'nothing that is to be refused');
for (const {name, sql} of sent) {
  const faults = faultsOf(sql);
  check(faults.length === 0, `${name}: ${faults[0]}\n  ${sql}`);
}
for (const {name, sql} of refused) check(faultsOf(sql).length > 0, `${name} was let pass: ${sql}`);
console.log(`${passed} passed, ${failed} failed`);
process.exitCode = failed === 0 ? 0 : 1;
