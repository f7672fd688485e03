'use strict';
// Copies the sources, puts the faults in and builds the tests. What does not compile is left out.

const fs = require('fs');
const path = require('path');
const { spawnSync } = require('child_process');
const { rewrite } = require('./rewriter.js');
const { filesOf } = require('./catalogue.js');

class Builder {
  constructor(root, work) {
    Object.assign(this, { root, work, tree: path.join(work, 'tree'), build: path.join(work, 'build') });
    this.droppedFile = path.join(work, 'dropped.json');
    this.dropped = new Set(fs.existsSync(this.droppedFile) ? JSON.parse(fs.readFileSync(this.droppedFile, 'utf8')) : []);
  }

  // Only what differs is written, so that little is compiled again.
  put(file, content, mode) {
    const to = path.join(this.tree, file);
    if (fs.existsSync(to) && fs.readFileSync(to).equals(content)) return;
    fs.mkdirSync(path.dirname(to), { recursive: true });
    fs.writeFileSync(to, content, { mode });
  }

  copy(mutants) {
    const byFile = new Map(mutants.map(m => [m.file, []]));
    for (const mutant of mutants) if (!this.dropped.has(mutant.id)) byFile.get(mutant.file).push(mutant);
    this.spans = new Map();
    for (const file of filesOf(this.root)) {
      const from = path.join(this.root, file);
      const source = fs.readFileSync(from);
      const places = byFile.get(file) ?? [];
      if (places.length === 0) {
        this.put(file, source, fs.statSync(from).mode);
        continue;
      }
      const { text, spans } = rewrite(source.toString('utf8'), places);
      this.spans.set(file, spans);
      const head = `#include "${path.join(__dirname, 'mutant.h')}"\n#line 1 "${path.join(this.tree, file)}"\n`;
      this.put(file, Buffer.from(head + text), 0o644);
    }
  }

  run(command, args, log) {
    const out = fs.openSync(log, 'w');
    const { status } = spawnSync(command, args, { stdio: ['ignore', out, out] });
    fs.closeSync(out);
    return status === 0;
  }

  configure() {
    const log = path.join(this.work, 'configure.log');
    const done = this.run('cmake', ['-S', this.tree, '-B', this.build, '-G', 'Ninja', '-DCMAKE_BUILD_TYPE=Debug',
      '-DCMAKE_CXX_FLAGS_DEBUG=-g0', '-DCMAKE_C_FLAGS_DEBUG=-O1 -g0', `-DZV_PACKAGES_DIR=${path.join(this.root, 'build/deps')}`,
      '-DZV_TESTS_TOGETHER=ON', '-DZV_PRECOMPILED_HEADERS=ON', '-DCMAKE_UNITY_BUILD=ON',
      '-DCMAKE_EXPORT_COMPILE_COMMANDS=ON', '-DCMAKE_PROJECT_INCLUDE=' + path.join(__dirname, 'quiet.cmake')], log);
    if (!done) throw new Error(`it cannot be configured, see ${log}`);
  }

  // The programs that are built: tests of units (ZV_UNITS="items plans" only these), the contract, the
  // player of scenarios and zvdb.
  targets() {
    const units = fs.readdirSync(path.join(this.root, 'tests/unit'))
      .filter(unit => fs.existsSync(path.join(this.root, 'tests/unit', unit, 'CMakeLists.txt')))
      .filter(unit => !process.env.ZV_UNITS || process.env.ZV_UNITS.split(' ').includes(unit));
    return [...units.map(unit => `tests/unit/${unit}/all`), 'tests/contract/all', 'zvscript', 'zvdb'];
  }

  // The numbers of the mutants that the compiler does not take, by what it says.
  refused(log) {
    const wrong = new Set();
    for (const [, file, line, column] of log.matchAll(/^(\S+?\.cpp):(\d+):(\d+):\s+(?:error:|required from here)/gm)) {
      const spans = (this.spans.get(path.relative(this.tree, file)) ?? []).filter(span => span.line === +line);
      const exact = spans.filter(span => span.from <= +column && +column < span.to);
      for (const span of exact.length ? exact : spans) wrong.add(span.number);
    }
    return wrong;
  }

  make(mutants, tell) {
    const byNumber = new Map(mutants.map(m => [m.number, m]));
    const log = path.join(this.work, 'build.log');
    for (let round = 1; ; ++round) {
      this.copy(mutants);
      if (round === 1) this.configure();
      const jobs = process.env.ZV_JOBS ?? '2';
      if (this.run('cmake', ['--build', this.build, '-j', jobs, '--target', ...this.targets(), '--', '-k', '0'], log)) break;
      const refused = this.refused(fs.readFileSync(log, 'utf8'));
      if (refused.size === 0) throw new Error(`it does not build, see ${log}`);
      for (const number of refused) this.dropped.add(byNumber.get(number).id);
      fs.writeFileSync(this.droppedFile, JSON.stringify([...this.dropped]));
      tell(`round ${round}: ${refused.size} faults do not compile`);
    }
    this.copy(mutants);
  }
}

module.exports = { Builder };
