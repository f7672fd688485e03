'use strict';
// node self_test.js COMPILER: the harness on a small program of its own (sample/). Closes with
// "N passed, N failed".

const fs = require('fs');
const os = require('os');
const path = require('path');
const { execFileSync } = require('child_process');
const { readTokens, pairBrackets } = require('./tokens.js');
const { readFunctions } = require('./functions.js');
const { mutantsOf } = require('./catalogue.js');
const { rewrite, changed } = require('./rewriter.js');
const { draw } = require('./draw.js');
const { measure, meeting } = require('./reach.js');
const { Player } = require('./player.js');
const { report } = require('./report.js');
const { readEqual, stale } = require('./equal.js');
const { folderOf } = require('./folders.js');
const { readCatalogue } = require('./catalogue.js');

let passed = 0;
let failed = 0;
function check(name, holds) {
  if (holds) {
    ++passed;
  } else {
    ++failed;
    console.log(`FAILED: ${name}`);
  }
}

const told = body => mutantsOf('src/items/x.cpp', `int f(int a, int b) {\n    ${body}\n}\n`)
  .filter(mutant => mutant.kind !== 'early').map(({ kind, told: text }) => `${kind}: ${text}`);
function makes(body, ...faults) {
  const found = told(body);
  for (const fault of faults) check(`"${body}" gives "${fault}", not only ${JSON.stringify(found)}`, found.includes(fault));
}
function makesNone(body) {
  check(`"${body}" gives nothing, but ${JSON.stringify(told(body))}`, told(body).length === 0);
}

function checkPlaces() {
  makes('if (a < b) go();', 'comparison: if (a [< -> <=] b) go();', 'statement: if (a < b) [go(); -> ;]', 'condition: if ([a < b -> !(a < b)]) go();');
  makes('return a && b(1) || c;', 'operand: return [a -> true] && b(1) || c;', 'operand: return a && [b(1) -> true] || c;',
    'operand: return [a && b(1) -> false] || c;', 'operand: return a && b(1) || [c -> false];', 'constant: return a && b([1 -> 2]) || c;');
  makes('return a + b;', 'arithmetic: return a [+ -> -] b;');
  makes("x = 1'000;", "constant: x = [1'000 -> 1001];", "constant: x = [1'000 -> 999];", "statement: [x = 1'000; -> ;]");
  makes('return !a;', 'return: return [!a -> !(!a)];');
  makes('use([&] { step(); });', 'statement: use([&] { [step(); -> ;] });');
  makes('return a ? b : c;', 'condition: return [a -> !(a)] ? b : c;');
  makesNone('std::vector<int> numbers;');
  makesNone('static_assert(1 + 1 == 2);');
  makesNone('assert(a < b);');
  makesNone('constexpr int kMany = 3;');
  makesNone('text.reserve(12);');
  makesNone('const char* text = "a < b && c"; // a < b');
  makesNone('std::array<int, 4> four;');
  makesNone('struct Count { Count() { ++all; } Count(const Count&) = delete; };');
  makesNone('auto&& all = rows;');
  makesNone('return a;');
  makesNone('if (const auto found = find(a)) return a;');
}

function checkFunctions() {
  const source = 'namespace n {\nX::X(int a) : a_{a}, b_([a] { return a; }), c_(2) { go(); }\nX::~X() { end(); }\n' +
    'const char* kNames[] = {"a"};\nconstexpr std::array<int, kAll.size()> kSizes{{1, 2}};\nbool X::is() const { return a_; }\n[[noreturn]] void Throw() { throw 1; }\n' +
    'constexpr auto f() { return 2; }\n}\n';
  const tokens = readTokens(source);
  const found = readFunctions(tokens, pairBrackets(tokens)).map(fn => `${fn.name} ${fn.back || '-'}`);
  check(`functions are found: ${found}`, found.join() === 'X::X void,X::~X void,X::is bool,Throw -,f -');
  const windows = mutantsOf('src/items/x.cpp', 'int f() {\n#ifdef _WIN32\n    go();\n#else\n    stay();\n#endif\n    return a;\n}\n');
  check('what is only for Windows is not changed', !windows.some(m => /go/.test(m.told)) && windows.some(m => /stay/.test(m.told)));
  check('sources for Windows take no part', folderOf('src/forms/win32/a.cpp') === null && folderOf('src/forms/a.cpp') === 'windows');
}

function checkRewriting() {
  const source = 'int f(int a, int b) {\n    if (a < b &&\n        b != 3) return 1;\n    go(a);\n    return 0;\n}\n';
  const mutants = mutantsOf('src/items/x.cpp', source);
  mutants.forEach((mutant, i) => { mutant.number = i + 1; });
  const { text, spans } = rewrite(source, mutants);
  check('no line is added', text.split('\n').length === source.split('\n').length);
  check('pieces are found again', spans.every(span => text.split('\n')[span.line - 1].slice(span.from - 1, span.to - 1).length === span.to - span.from));
  check('the pieces can be taken out again', mutants.every(mutant => changed(source, mutant) !== source));
  const moved = mutantsOf('src/items/x.cpp', '\n\n' + source);
  check('an id survives that lines move', moved.map(m => m.id).join() === mutants.map(m => m.id).join());
  check('ids differ', new Set(mutants.map(m => m.id)).size === mutants.length);
}

function checkDrawing() {
  const mutants = readCatalogue(path.resolve(__dirname, '../../..'));
  const ids = seed => draw(mutants, seed, 60).map(mutant => mutant.id).join();
  check('a seed chooses the same', ids(1) === ids(1));
  check('another seed chooses others', ids(1) !== ids(2));
  const drawn = draw(mutants, 3, 60);
  check('none is drawn twice', new Set(drawn.map(m => m.id)).size === drawn.length);
  check('every folder has its share', ['domain', 'store', 'windows', 'reports', 'session', 'zvdb'].every(f => drawn.filter(m => m.folder === f).length === 10));
  const some = draw(mutants, 3, 20, ['store', 'zvdb']);
  check('chosen folders share alone', some.length === 20 && some.every(m => ['store', 'zvdb'].includes(m.folder)));
  check('they have what they have among all', some.every(m => drawn.includes(m)));
  check('what is listed as equal is there', stale(readEqual(), mutants).length === 0);
}

async function checkPlaying(compiler, work) {
  const source = fs.readFileSync(path.join(__dirname, 'sample/ages.cpp'), 'utf8');
  const mutants = mutantsOf('sample/ages.cpp', source);
  mutants.forEach((mutant, i) => Object.assign(mutant, { number: i + 1, folder: 'domain' }));
  const written = path.join(work, 'ages.cpp');
  fs.mkdirSync(path.join(work, 'bin'));
  fs.mkdirSync(path.join(work, 'tests/scenarios'), { recursive: true });
  fs.writeFileSync(written, `#include "${path.join(__dirname, 'mutant.h')}"\n` + rewrite(source, mutants).text);
  execFileSync(compiler, ['-std=c++20', '-w', '-I', path.join(__dirname, 'sample'), written, path.join(__dirname, 'sample/ages_test.cpp'), '-o', path.join(work, 'bin/ages_test')], { stdio: 'inherit' });
  const tests = await measure({ build: work, tree: work, work }, mutants, 2, console.log);
  check('both tests stand without a fault', tests.length === 2 && tests.every(test => test.sound && test.meets.length > 10));
  const player = new Player(work, work);
  const play = async kind => {
    const by = meeting(tests.filter(test => test.name === kind));
    return Promise.all(mutants.map(async mutant => ({ ...mutant, ...await player.play(mutant, by.get(mutant.number) ?? []) })));
  };
  const weak = await play('Ages.weak');
  const good = await play('Ages.good');
  const outcome = (results, fault) => results.find(result => result.told.includes(fault))?.outcome;
  for (const fault of ['age [>= -> >] 18', '[18 -> 17]', '[isCitizen -> true]', '"Hello " [+ -> -] name', '[Note(sum); -> ;]',
    '[sum += numbers[i]; -> ;]', '[i < count -> ', 'number [* -> /] 2', '[name.empty() -> !(name.empty())]']) {
    if (!mutants.some(mutant => mutant.told.includes(fault))) continue;
    check(`the good test notices ${fault}`, outcome(good, fault) === 'noticed');
    if (!fault.includes('sum +=')) check(`the weak test lets ${fault} live`, outcome(weak, fault) === 'lives');
  }
  const unseen = good.filter(result => result.outcome !== 'noticed').map(result => result.told);
  check(`only what cannot be seen lives with the good test: ${unseen.join('; ')}`, unseen.every(text => /-1|default|case|\[1 ->/.test(text)));
  check('a report counts them', /all +\d+ +\d+ +\d+/.test(report(good)));
}

async function main() {
  const work = fs.mkdtempSync(path.join(os.tmpdir(), 'mutants-'));
  try {
    checkPlaces();
    checkFunctions();
    checkRewriting();
    checkDrawing();
    await checkPlaying(process.argv[2] ?? 'c++', work);
  } finally {
    fs.rmSync(work, { recursive: true, force: true });
  }
  console.log(`${passed} passed, ${failed} failed`);
  process.exitCode = failed === 0 ? 0 : 1;
}

main();
