'use strict';
// Rates by folder, and the faults that nobody noticed.

const { names } = require('./folders.js');

function rateLine(name, results) {
  const of = outcome => results.filter(result => result.outcome === outcome).length;
  const noticed = of('noticed');
  const all = noticed + of('lives') + of('not reached');
  const rate = all > 0 ? `${Math.round(100 * noticed / all)} %` : '-';
  return [name, all, noticed, of('lives'), of('not reached'), of('equal'), rate];
}

function report(results) {
  const lines = [['folder', 'faults', 'noticed', 'live', 'not reached', 'equal', 'rate'],
    ...names.map(name => rateLine(name, results.filter(result => result.folder === name))),
    rateLine('all', results)];
  const table = lines.map(([name, ...rest]) => name.padEnd(10) + rest.map(cell => String(cell).padStart(12)).join(''));
  return table.join('\n');
}

function survivorLine({ id, file, line, fn, kind, told, outcome, met }) {
  const tests = met?.length ? `  met by ${met.length}: ${met.slice(0, 3).join(', ')}${met.length > 3 ? ', ...' : ''}` : '';
  return `${id} ${file}:${line} ${fn} ${kind}: ${told}${outcome === 'not reached' ? '  (not reached)' : tests}`;
}

function survivors(results) {
  return names.map(name => {
    const living = results.filter(result => result.folder === name && ['lives', 'not reached'].includes(result.outcome));
    return living.length ? [`${name}:`, ...living.map(survivorLine)].join('\n') : '';
  }).filter(Boolean).join('\n\n');
}

module.exports = { report, survivors, survivorLine };
