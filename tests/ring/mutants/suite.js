'use strict';
// The tests that are played: each test of the test programs, and each scenario, without a display and
// over ODBC.

const fs = require('fs');
const path = require('path');
const { execFileSync } = require('child_process');

// { name, group, built }: what is of one group can run in one process; built tells when its program was.
function listTests(build, tree) {
  const bin = path.join(build, 'bin');
  const programs = fs.readdirSync(bin).filter(name => /(_test|_contract)$/.test(name) && !name.startsWith('ring_')).sort();
  const tests = [];
  const whenBuilt = program => fs.statSync(path.join(bin, program)).mtimeMs;
  for (const program of programs) {
    const built = whenBuilt(program);
    const listed = execFileSync(path.join(bin, program), ['--gtest_list_tests'], { encoding: 'utf8', maxBuffer: 1 << 26 });
    let suite = '';
    for (const line of listed.split('\n').map(line => line.replace(/\s*#.*/, ''))) {
      if (/^\S+\.$/.test(line)) suite = line;
      else if (/^ {2}\S/.test(line) && !/\bDISABLED_/.test(suite + line)) tests.push({ name: suite + line.trim(), group: program, built });
    }
  }
  const scenarios = execFileSync('find', ['tests/scenarios', '-name', '*.zvs'], { cwd: tree, encoding: 'utf8' }).split('\n').filter(Boolean).sort();
  if (scenarios.length === 0) return tests;
  const built = whenBuilt('zvscript');
  for (const group of ['headless', 'sqlite-odbc']) {
    tests.push(...scenarios.map(name => ({ name, group, built })));
  }
  return tests;
}

function commandOf(build, tree, group, names) {
  const bin = path.join(build, 'bin');
  if (group === 'headless' || group === 'sqlite-odbc') {
    const files = names.map(name => path.join(tree, name));
    const how = group === 'headless' ? ['--backend', 'headless'] : ['--engine', group];
    return [path.join(bin, 'zvscript'), ...how, ...files];
  }
  return [path.join(bin, group), '--gtest_brief=1', '--gtest_fail_fast', `--gtest_filter=${names.join(':')}`];
}

// The first test that the output says has failed.
function failedOf(said, names) {
  return names.find(name => said.split('\n').some(line => /^(FAIL|\[  FAILED  \]) /.test(line) && line.includes(name)));
}

module.exports = { listTests, commandOf, failedOf };
