'use strict';
// The folders of the report and the files of each. Only sources that stand on nothing of Windows take
// part; whether they are compiled here at all is for the build to say.

const folders = {
  domain: ['src/items', 'src/plans', 'src/cards', 'src/staff', 'src/progress', 'src/base'],
  store: ['src/store'],
  windows: ['src/windows', 'src/forms'],
  reports: ['src/reports', 'host/report'],
  session: ['src/session', 'src/control'],
  zvdb: ['tools/zvdb'],
};
const ofWindows = /\/(win32|windows|ado)\/|_win32\.cpp$|\/ado_\w+\.cpp$/;

function folderOf(file) {
  if (!file.endsWith('.cpp') || ofWindows.test(file)) return null;
  const named = Object.entries(folders).find(([, roots]) => roots.some(root => file.startsWith(root + '/')));
  return named ? named[0] : null;
}

module.exports = { names: Object.keys(folders), folderOf };
