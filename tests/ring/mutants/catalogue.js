'use strict';
// All faults that can be made in the sources, each with an id that survives other changes of its file.

const crypto = require('crypto');
const fs = require('fs');
const path = require('path');
const { execFileSync } = require('child_process');
const { readTokens, pairBrackets } = require('./tokens.js');
const { readFunctions } = require('./functions.js');
const { placesOf } = require('./places.js');
const { folderOf } = require('./folders.js');

function shorter(text) {
  const line = text.replace(/\s+/g, ' ').trim();
  return line.length > 70 ? line.slice(0, 67) + '...' : line;
}

// The line of the fault with what is changed in it.
function tell(source, { begin, end, text, kind }) {
  const from = source.lastIndexOf('\n', begin - 1) + 1;
  let to = source.indexOf('\n', end);
  if (to < 0) to = source.length;
  const old = source.slice(begin, end);
  if (kind === 'early') return `${shorter(source.slice(from, to))} [${text.trim()}]`;
  return `${source.slice(from, begin).trimStart()}[${shorter(old)} -> ${shorter(text)}]${source.slice(end, to).trimEnd()}`;
}

function mutantsOf(file, source) {
  const tokens = readTokens(source);
  const partners = pairBrackets(tokens);
  const folder = folderOf(file);
  const seen = new Map();
  return readFunctions(tokens, partners).flatMap(fn =>
    placesOf(source, tokens, partners, fn).map(place => {
      const text = tell(source, place);
      const same = `${file}|${fn.name}|${place.kind}|${text}`;
      const nth = (seen.get(same) ?? 0) + 1;
      seen.set(same, nth);
      const key = nth > 1 ? `${same}|${nth}` : same;
      const id = crypto.createHash('sha1').update(key).digest('hex').slice(0, 8);
      const length = tokens[fn.close].line - tokens[fn.open].line + 1;
      return { id, folder, file, fn: fn.name, fnLine: tokens[fn.open].line, length, told: nth > 1 ? `${text} #${nth}` : text, ...place };
    }));
}

function filesOf(root) {
  return execFileSync('git', ['ls-files', '-co', '--exclude-standard'], { cwd: root, encoding: 'utf8', maxBuffer: 1 << 26 })
    .split('\n').filter(file => file && fs.existsSync(path.join(root, file)));
}

// All mutants of the sources below `root`, numbered from 1. One keeps the number that it has in `numbers`,
// a file, so that only the files that change are compiled again.
function readCatalogue(root, numbers = '') {
  const mutants = filesOf(root).filter(folderOf).sort()
    .flatMap(file => mutantsOf(file, fs.readFileSync(path.join(root, file), 'utf8')));
  const known = numbers && fs.existsSync(numbers) ? JSON.parse(fs.readFileSync(numbers, 'utf8')) : {};
  let last = Math.max(0, ...Object.values(known));
  for (const mutant of mutants) mutant.number = known[mutant.id] ??= ++last;
  if (numbers) fs.writeFileSync(numbers, JSON.stringify(known));
  return mutants;
}

module.exports = { readCatalogue, mutantsOf, filesOf };
