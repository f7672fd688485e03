'use strict';
// Sums a report of lines and branches (the tracefile format of lcov) by folder.

// The files of TRACE below ROOT that WANTED accepts: Map of path to { lines: Map of line to calls,
// branches: array of calls }.
function filesOf(trace, root, wanted) {
  const files = new Map();
  let file = null;
  for (const record of trace.split('\n')) {
    const colon = record.indexOf(':');
    const name = colon < 0 ? record : record.slice(0, colon);
    const value = record.slice(colon + 1);
    if (name === 'SF') {
      const path = value.startsWith(root + '/') ? value.slice(root.length + 1) : null;
      file = path !== null && wanted(path) ? { lines: new Map(), branches: [] } : null;
      if (file !== null) files.set(path, file);
    } else if (file === null) {
      continue;
    } else if (name === 'DA') {
      const [line, calls] = value.split(',').map(Number);
      file.lines.set(line, Math.max(calls, file.lines.get(line) ?? 0));
    } else if (name === 'BRDA') {
      const calls = value.split(',')[3];
      file.branches.push(calls === '-' ? 0 : Number(calls));
    }
  }
  return files;
}

const nothing = () => ({ lines: 0, reached: 0, branches: 0, taken: 0 });

function sumOf(files) {
  const sum = nothing();
  for (const { lines, branches } of files) {
    sum.lines += lines.size;
    sum.reached += [...lines.values()].filter(calls => calls > 0).length;
    sum.branches += branches.length;
    sum.taken += branches.filter(calls => calls > 0).length;
  }
  return sum;
}

// Rows { folder, lines, reached, branches, taken } in the order of the folders' names.
function byFolder(files) {
  const folders = new Map();
  for (const [path, file] of files) {
    const folder = path.slice(0, path.lastIndexOf('/'));
    if (!folders.has(folder)) folders.set(folder, []);
    folders.get(folder).push(file);
  }
  return [...folders.keys()].sort().map(folder => ({ folder, ...sumOf(folders.get(folder)) }));
}

const share = (part, whole) => whole === 0 ? '-' : (part / whole * 100).toFixed(1);

function table(files) {
  const row = ({ folder, lines, reached, branches, taken }) =>
    [folder.padEnd(28), lines, reached, share(reached, lines), branches, taken, share(taken, branches)]
      .map((value, column) => column === 0 ? value : String(value).padStart(9)).join('');
  const head = 'folder'.padEnd(28) + ['lines', 'reached', '%', 'branches', 'taken', '%'].map(name => name.padStart(9)).join('');
  return [head, ...byFolder(files).map(row), row({ folder: 'all', ...sumOf([...files.values()]) })].join('\n');
}

// "path:first-last", one for each run of lines that nothing reaches. A line without code, such as a
// comment, ends no run.
function unreached(files) {
  const runs = [];
  for (const path of [...files.keys()].sort()) {
    let first = null;
    let last = null;
    const close = () => {
      if (first !== null) runs.push(first === last ? `${path}:${first}` : `${path}:${first}-${last}`);
      first = null;
    };
    for (const [line, calls] of [...files.get(path).lines].sort(([a], [b]) => a - b)) {
      if (calls > 0) {
        close();
      } else {
        first ??= line;
        last = line;
      }
    }
    close();
  }
  return runs;
}

module.exports = { filesOf, byFolder, table, unreached };
