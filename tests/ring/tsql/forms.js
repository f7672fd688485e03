// forms.js LOG...: of the statements in the logs, a line each, one of each form, which is the first that
// differs from those before it in more than its numbers and texts: its log and line, " :: " and the
// statement. The logs are of users at a file; for a server dates stand between apostrophes, which
// statements.cpp asks of every form.
'use strict';

const fs = require('fs');
const path = require('path');

function formOf(sql) {
  return sql.replace(/'(?:[^']|'')*'/g, "''").replace(/\b\d+(?:\.\d+)?\b/g, '0').replace(/\(0(?:, ?0)+\)/g, '(0)');
}

const forms = new Set();
for (const log of process.argv.slice(2)) {
  fs.readFileSync(log, 'utf8').split('\n').forEach((sent, index) => {
    const sql = sent.replace(/#(\d\d\/\d\d\/\d{4})#/g, "'$1'");
    const form = formOf(sql);
    if (form === '' || forms.has(form)) return;
    forms.add(form);
    console.log(`${path.basename(log, '.log')}, statement ${index + 1} :: ${sql}`);
  });
}
