'use strict';
// Tests of the sums, on a report that was written by hand.
const { filesOf, byFolder, table, unreached } = require('./reached.js');

let passed = 0;
let failed = 0;
function same(name, expected, actual) {
  const [e, a] = [expected, actual].map(value => JSON.stringify(value));
  if (e === a) {
    passed += 1;
  } else {
    failed += 1;
    console.log(`FAIL ${name}: ${a} instead of ${e}`);
  }
}

const trace = `SF:/house/src/a/one.cpp
FN:1,One
DA:1,3
DA:2,0
DA:4,0
DA:5,1
DA:9,0
BRDA:2,0,0,-
BRDA:5,0,0,1
BRDA:5,0,1,0
end_of_record
SF:/house/src/a/two.h
DA:7,1
DA:7,0
end_of_record
SF:/house/src/b/deep/three.cpp
DA:1,0
end_of_record
SF:/house/tests/unit/four.cpp
DA:1,1
end_of_record
SF:/usr/include/five.h
DA:1,1
end_of_record
SF:/housekeeping/src/six.cpp
DA:1,1
end_of_record
`;
const files = filesOf(trace, '/house', path => path.startsWith('src/'));
same('files below the root that are asked for', ['src/a/one.cpp', 'src/a/two.h', 'src/b/deep/three.cpp'], [...files.keys()]);
same('sums by folder', [
  { folder: 'src/a', lines: 6, reached: 3, branches: 3, taken: 1 },
  { folder: 'src/b/deep', lines: 1, reached: 0, branches: 0, taken: 0 },
], byFolder(files));
same('runs that nothing reaches', ['src/a/one.cpp:2-4', 'src/a/one.cpp:9', 'src/b/deep/three.cpp:1'], unreached(files));
same('the table ends with all', ['all', '7', '3', '42.9', '3', '1', '33.3'], table(files).split('\n').at(-1).split(/ +/));
same('no branches are no share', '-', table(files).split('\n')[2].split(/ +/).at(-1));
same('nothing at all', [], unreached(filesOf('', '/house', () => true)));

console.log(`${passed} passed, ${failed} failed`);
process.exitCode = failed === 0 ? 0 : 1;
