'use strict';
// Plays every test once without a fault: how long it takes, and which faults it would meet.

const fs = require('fs');
const os = require('os');
const path = require('path');
const { runProgram, sideBySide } = require('./process.js');
const { listTests, commandOf } = require('./suite.js');

// What is known of tests of programs that are still the same is taken from `known`.
async function measure(builder, mutants, atOnce, tell, known = []) {
  const keyOf = ({ group, name, built }) => `${group} ${name} ${built}`;
  const kept = new Map(known.map(test => [keyOf(test), test]));
  const all = listTests(builder.build, builder.tree).map(test => kept.get(keyOf(test)) ?? test);
  const tests = all.filter(test => !test.meets);
  const size = Math.max(...mutants.map(mutant => mutant.number)) + 1;
  let done = 0;
  await sideBySide(tests, atOnce, async test => {
    const hits = path.join(builder.work, `hits-${process.pid}-${done++}`);
    fs.writeFileSync(hits, Buffer.alloc(size));
    const ran = await runProgram(commandOf(builder.build, builder.tree, test.group, [test.name]), { hits, limit: 300 });
    test.seconds = ran.seconds;
    test.sound = ran.status === 0;
    const met = fs.readFileSync(hits);
    fs.rmSync(hits);
    test.meets = [];
    for (let n = 1; n < size; ++n) if (met[n]) test.meets.push(n);
    if (!test.sound) test.said = `${ran.status}: ${ran.said.slice(-300)}`;
    if (done % 200 === 0) tell(`${done} of ${tests.length} tests measured`);
  });
  return all;
}

// The tests that meet each fault. The fewer places a test meets, the nearer it is to each of them.
function meeting(tests) {
  const by = new Map();
  for (const test of tests.filter(test => test.sound).sort((a, b) => a.meets.length * a.seconds - b.meets.length * b.seconds)) {
    for (const number of test.meets) {
      if (!by.has(number)) by.set(number, []);
      by.get(number).push(test);
    }
  }
  return by;
}

module.exports = { measure, meeting };
