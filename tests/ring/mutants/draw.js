'use strict';
// Chooses faults: of each folder as many; a function by its length, in it first the kind and then the
// place; none twice. The same seed chooses the same.

const { names } = require('./folders.js');

// A small generator of random numbers, so that the choice is the same everywhere (mulberry32).
function randomFrom(seed) {
  let state = seed >>> 0;
  return () => {
    state = (state + 0x6d2b79f5) >>> 0;
    let t = Math.imul(state ^ (state >>> 15), state | 1);
    t = (t + Math.imul(t ^ (t >>> 7), t | 61)) ^ t;
    return ((t ^ (t >>> 14)) >>> 0) / 4294967296;
  };
}

function drawFolder(mutants, count, random) {
  const functions = new Map();
  for (const mutant of mutants) {
    const key = `${mutant.file}:${mutant.fnLine}`;
    if (!functions.has(key)) functions.set(key, { length: mutant.length, left: [] });
    functions.get(key).left.push(mutant);
  }
  const drawn = [];
  let open = [...functions.values()];
  while (drawn.length < count && open.length > 0) {
    let at = random() * open.reduce((sum, fn) => sum + fn.length, 0);
    const chosen = open.find(fn => (at -= fn.length) < 0) ?? open.at(-1);
    const kinds = [...new Set(chosen.left.map(mutant => mutant.kind))];
    const kind = kinds[Math.floor(random() * kinds.length)];
    const ofKind = chosen.left.filter(mutant => mutant.kind === kind);
    const mutant = ofKind[Math.floor(random() * ofKind.length)];
    chosen.left = chosen.left.filter(other => other !== mutant);
    open = open.filter(fn => fn.left.length > 0);
    drawn.push(mutant);
  }
  return drawn;
}

// `count` mutants, spread evenly over the folders and in turn, so that a run that ends early is even, too.
// What is drawn of a folder does not depend on which others take part.
function draw(mutants, seed, count, folders = names) {
  const unknown = folders.filter(folder => !names.includes(folder));
  if (unknown.length > 0) throw new Error(`no folder of the report: ${unknown.join(' ')}`);
  const each = Math.ceil(count / folders.length);
  const drawn = folders.map(folder =>
    drawFolder(mutants.filter(mutant => mutant.folder === folder), each, randomFrom(seed * 31 + names.indexOf(folder))));
  return Array.from({ length: each }, (_, i) => drawn.map(ofFolder => ofFolder[i])).flat().filter(Boolean);
}

module.exports = { draw, drawFolder, randomFrom };
