'use strict';
// node main.js ORDER..., see run.sh.

const fs = require('fs');
const path = require('path');
const { readCatalogue } = require('./catalogue.js');
const { Builder } = require('./builder.js');
const { changed } = require('./rewriter.js');
const { measure, meeting } = require('./reach.js');
const { draw } = require('./draw.js');
const { Player } = require('./player.js');
const { sideBySide } = require('./process.js');
const { report, survivors, survivorLine } = require('./report.js');
const { readEqual, keyOf, stale } = require('./equal.js');

const root = path.resolve(__dirname, '../../..');
const work = path.join(root, 'build/ring/mutants');
const atOnce = Number(process.env.ZV_JOBS ?? 2);
const tell = text => console.log(text);

class Harness {
  constructor() {
    fs.mkdirSync(work, { recursive: true });
    this.mutants = readCatalogue(root, path.join(work, 'numbers.json'));
    this.builder = new Builder(root, work);
    this.equal = readEqual();
    for (const key of stale(this.equal, this.mutants)) tell(`equal.txt: fits no fault: ${key}`);
  }

  async prepare() {
    this.builder.make(this.mutants, tell);
    const file = path.join(work, 'reach.json');
    const known = fs.existsSync(file) ? JSON.parse(fs.readFileSync(file, 'utf8')) : [];
    const tests = await measure(this.builder, this.mutants, atOnce, tell, known);
    fs.writeFileSync(file, JSON.stringify(tests));
    for (const test of tests.filter(test => !test.sound)) tell(`left out, fails without a fault: ${test.group} ${test.name}`);
    this.meeting = meeting(tests);
    this.compiled = this.mutants.filter(mutant => !this.builder.dropped.has(mutant.id) && this.isBuilt(mutant.file));
    tell(`${this.mutants.length} faults, ${this.compiled.length} of them in what is built here`);
  }
  isBuilt(file) {
    this.sources ??= fs.readFileSync(path.join(this.builder.build, 'build.ninja'), 'utf8') +
      this.unityFiles().map(unity => fs.readFileSync(unity, 'utf8')).join('\n');
    return this.sources.includes(path.join(this.builder.tree, file));
  }
  unityFiles() {
    return fs.readdirSync(this.builder.build, { recursive: true }).filter(name => /unity_\d+_cxx\.cxx$/.test(name)).map(name => path.join(this.builder.build, name));
  }

  async play(chosen, results) {
    const known = new Set(this.readResults(results).map(result => result.id));
    const player = new Player(this.builder.build, this.builder.tree);
    await sideBySide(chosen, atOnce, async mutant => {
      const { id, folder, file, fn, line, kind, told } = mutant;
      const tests = this.meeting.get(mutant.number) ?? [];
      if (!known.has(id)) {
        const found = this.equal.has(keyOf(mutant)) ? { outcome: 'equal' } : await player.play(mutant, tests);
        const result = { id, folder, file, fn, line, kind, told, ...found };
        if (found.outcome === 'lives') result.met = tests.map(test => `${test.group} ${test.name}`);
        fs.appendFileSync(results, JSON.stringify(result) + '\n');
        tell(`${result.outcome.padEnd(12)} ${(result.seconds ?? 0).toFixed(1).padStart(6)} s  ${survivorLine({ ...result, met: [] })}${result.by ? '  by ' + result.by : ''}`);
      }
    });
  }
  readResults(file) {
    return fs.existsSync(file) ? fs.readFileSync(file, 'utf8').split('\n').filter(Boolean).map(line => JSON.parse(line)) : [];
  }
  tellResults(file) {
    const results = this.readResults(file);
    tell(`\n${survivors(results)}\n\n${report(results)}`);
  }
  find(ids) {
    return ids.map(id => this.mutants.find(mutant => mutant.id === id) ?? (() => { throw new Error(`no fault ${id}`); })());
  }

  show(mutant) {
    const source = fs.readFileSync(path.join(root, mutant.file), 'utf8');
    const [old, now] = [source.split('\n'), changed(source, mutant).split('\n')];
    let same = 0;
    while (old[same] === now[same]) ++same;
    let behind = 0;
    while (old.at(-1 - behind) === now.at(-1 - behind) && behind < Math.min(old.length, now.length) - same) ++behind;
    tell(`--- ${mutant.file}\n+++ ${mutant.file}\n@@ -${Math.max(1, same - 2)} ${mutant.fn} @@`);
    for (const line of old.slice(Math.max(0, same - 3), same)) tell(' ' + line);
    for (const line of old.slice(same, old.length - behind)) tell('-' + line);
    for (const line of now.slice(same, now.length - behind)) tell('+' + line);
    for (const line of old.slice(old.length - behind).slice(0, 3)) tell(' ' + line);
  }
}

async function main([order = 'play', ...rest]) {
  const harness = new Harness();
  if (order === 'show') return harness.find(rest).forEach(mutant => harness.show(mutant));
  const seed = Number(process.env.ZV_SEED ?? 1);
  if (order === 'report') return harness.tellResults(path.join(work, `results-${seed}.jsonl`));
  await harness.prepare();
  if (order === 'prepare') return undefined;
  const count = Number(process.env.ZV_MUTANTS ?? 200);
  let results = path.join(work, `results-${seed}.jsonl`);
  let chosen;
  if (order === 'again') {
    results = path.join(work, 'again.jsonl');
    fs.rmSync(results, { force: true });
    chosen = harness.find(rest);
  } else if (order === 'folder') {
    results = path.join(work, `results-${rest[0].replaceAll('/', '-')}.jsonl`);
    chosen = harness.compiled.filter(mutant => mutant.folder === rest[0] || mutant.file.startsWith(rest[0]));
  } else {
    chosen = draw(harness.compiled, seed, count, process.env.ZV_FOLDERS?.split(' '));
  }
  await harness.play(chosen, results);
  return harness.tellResults(results);
}

main(process.argv.slice(2)).catch(error => {
  console.error(`FAILED: ${error.stack}`);
  process.exitCode = 1;
});
