// Reads a statement as SQL Server would and says what is wrong with it: what the grammar refuses, and
// what it lets pass because names are free, an operator and functions that the server does not have.
'use strict';

const {CharStreams, CommonTokenStream} = require('antlr4ts');
const {TSqlLexer} = require('antlr4ts-sql/dist/src/grammar-output/tsql/TSqlLexer.js');
const {TSqlParser} = require('antlr4ts-sql/dist/src/grammar-output/tsql/TSqlParser.js');

// Those that the statements use, and types that take a length. The name of a table stands before the
// list of its columns, too.
const FUNCTIONS = new Set(
    ('scope_identity cast count max min sum len left ltrim right substring upper lower isnull coalesce ' +
     'db_name schema_name schema_id object_id getdate nvarchar varchar datetime2 decimal datepart month day ' +
     'year dateadd datediff convert identity in values exists and or not where on key include ' +
     'with default by top').split(' '));

// The grammar knows capital letters only.
class Capitals {
  constructor(text) { this.stream = CharStreams.fromString(text); }
  get index() { return this.stream.index; }
  get size() { return this.stream.size; }
  get sourceName() { return 'statement'; }
  consume() { this.stream.consume(); }
  LA(offset) {
    const code = this.stream.LA(offset);
    return code > 0 ? String.fromCodePoint(code).toUpperCase().codePointAt(0) : code;
  }
  mark() { return this.stream.mark(); }
  release(marker) { this.stream.release(marker); }
  seek(index) { this.stream.seek(index); }
  getText(interval) { return this.stream.getText(interval); }
}

// The driver puts a parameter in place of each mark outside of texts and names.
function withParameters(sql) {
  return sql.replace(/'[^']*'|\[[^\]]*\]|\?/g, part => part === '?' ? '@p' : part);
}

function strangers(tokens) {
  const found = [];
  for (let i = 0; i < tokens.length; i++) {
    const word = tokens[i].text;
    if (word === '||') found.push('no operator: ||');
    if (/^(true|false|limit|offset)$/i.test(word)) found.push('no such word: ' + word);
    const previous = i > 0 ? tokens[i - 1].text.toLowerCase() : '';
    if (/^[a-z_]+$/i.test(word) && tokens[i + 1].text === '(' && previous !== 'into' &&
        previous !== 'table' && previous !== 'on' && !FUNCTIONS.has(word.toLowerCase())) {
      found.push('no such function: ' + word);
    }
  }
  return found;
}

// What is wrong with the statements of `sql`, in words; nothing when they can be sent.
exports.faultsOf = function(sql) {
  const faults = [];
  const listener = {
    syntaxError: (recognizer, symbol, line, column, message) =>
        faults.push(`${line}:${column} ${message}`)
  };
  const lexer = new TSqlLexer(new Capitals(withParameters(sql)));
  lexer.removeErrorListeners();
  lexer.addErrorListener(listener);
  const stream = new CommonTokenStream(lexer);
  const parser = new TSqlParser(stream);
  parser.removeErrorListeners();
  parser.addErrorListener(listener);
  parser.tsql_file();
  return faults.concat(strangers(stream.getTokens().filter(token => token.channel === 0)));
};
