'use strict';
// Switches one fault on and plays the tests that meet it, the nearest first, until one notices.

const { runProgram } = require('./process.js');
const { commandOf, failedOf } = require('./suite.js');

const longest = 5;  // seconds of tests in one process
const most = 200;  // tests in one process

// Tests in the order given, put together to runs of one group each: small runs first.
function batches(tests) {
  const runs = [];
  const open = new Map();
  let largest = 0.3;
  for (const test of tests) {
    let run = open.get(test.group);
    if (!run || run.seconds + test.seconds > run.largest || run.tests.length >= most) {
      largest = Math.min(longest, largest * 1.3);
      run = { group: test.group, tests: [], seconds: 0, largest };
      open.set(test.group, run);
      runs.push(run);
    }
    run.tests.push(test);
    run.seconds += test.seconds;
  }
  return runs;
}

class Player {
  constructor(build, tree) {
    Object.assign(this, { build, tree });
  }

  run(group, tests, number) {
    const seconds = tests.reduce((sum, test) => sum + test.seconds, 0);
    return runProgram(commandOf(this.build, this.tree, group, tests.map(test => test.name)),
      { number, limit: 5 + 10 * seconds });
  }

  // Whether what has failed stands without the fault; a test that fails now and then notices nothing.
  async isSound(group, tests) {
    return (await this.run(group, tests, 0)).status === 0;
  }

  async play(mutant, tests) {
    if (tests.length === 0) return { outcome: 'not reached' };
    const unsound = [];
    let seconds = 0;
    for (const run of batches(tests)) {
      const ran = await this.run(run.group, run.tests, mutant.number);
      seconds += ran.seconds;
      if (ran.status === 0) continue;
      const failed = failedOf(ran.said, run.tests.map(test => test.name));
      const suspects = failed ? run.tests.filter(test => test.name === failed) : run.tests;
      if (!(await this.isSound(run.group, suspects))) {
        unsound.push(failed ?? run.group);
        continue;
      }
      return { outcome: 'noticed', by: `${run.group} ${failed ?? ''}`.trim(), how: String(ran.status), seconds, unsound };
    }
    return { outcome: 'lives', ran: tests.length, seconds, unsound };
  }
}

module.exports = { Player, batches };
