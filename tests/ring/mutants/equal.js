'use strict';
// equal.txt: faults that cannot be noticed, each with the reason. A line is
// FILE | FUNCTION | KIND | TEXT | REASON, which survives that lines move.

const fs = require('fs');
const path = require('path');

function readEqual(file = path.join(__dirname, 'equal.txt')) {
  const known = new Map();
  if (!fs.existsSync(file)) return known;
  fs.readFileSync(file, 'utf8').split('\n').forEach((line, i) => {
    if (!line.trim() || line.startsWith('#')) return;
    const parts = line.split(' | ').map(part => part.trim());
    if (parts.length < 5 || parts.some(part => part === '')) throw new Error(`${file}:${i + 1}: a part or the reason is missing`);
    known.set([...parts.slice(0, 3), parts.slice(3, -1).join(' | ')].join(' | '), parts.at(-1));
  });
  return known;
}

const keyOf = ({ file, fn, kind, told }) => `${file} | ${fn} | ${kind} | ${told}`;

// Entries that fit no fault, which say nothing any more about anything.
function stale(known, mutants) {
  const there = new Set(mutants.map(keyOf));
  return [...known.keys()].filter(key => !there.has(key));
}

module.exports = { readEqual, keyOf, stale };
