'use strict';
// Reads C++ into tokens. Comments and lines of the preprocessor are no tokens; what they leave out on
// this system is marked.

const shape = new RegExp([
  /(?<comment>\/\/[^\n]*|\/\*[^]*?\*\/)/,
  /(?<directive>(?<=^|\n)[ \t]*#(?:\\\n|[^\n])*)/,
  /(?<raw>(?:u8|[uUL])?R"(?<fence>[^()\\\s]{0,16})\([^]*?\)\k<fence>")/,
  /(?<string>(?:u8|[uUL])?"(?:\\[^]|[^"\\\n])*")/,
  /(?<char>(?:u8|[uUL])?'(?:\\[^]|[^'\\\n])+')/,
  /(?<number>\.?\d(?:[eEpP][+-]|'?[\w.])*)/,
  /(?<word>[A-Za-z_]\w*)/,
  /(?<mark><=>|<<=|>>=|\.\.\.|->\*|->|::|\+\+|--|<=|>=|==|!=|&&|\|\||[-+*\/%&|^]=|<<|[^\s])/,
].map(part => part.source).join('|'), 'g');

// What #if, #else and #endif leave out. Only the system that the compiler is for is asked here.
class Branches {
  #stack = [];
  read(line) {
    const windows = /_WIN32\b/.test(line);
    if (/^\s*#\s*if/.test(line)) {
      const wants = !/ifndef|!\s*defined/.test(line);
      this.#stack.push(windows ? (wants ? 'out' : 'in') : 'either');
    } else if (/^\s*#\s*el/.test(line)) {
      const was = this.#stack.pop();
      this.#stack.push(was === 'out' ? 'in' : was === 'in' ? 'out' : was);
    } else if (/^\s*#\s*endif/.test(line)) {
      this.#stack.pop();
    }
  }
  get out() { return this.#stack.includes('out'); }
}

// Tokens with `text`, `kind`, `begin`, `end`, `line`, `spaced` (white space on both sides) and `out`.
function readTokens(source) {
  const tokens = [];
  const branches = new Branches();
  let line = 1;
  let at = 0;
  for (const match of source.matchAll(shape)) {
    for (; at < match.index; ++at) if (source[at] === '\n') ++line;
    const { groups } = match;
    const text = match[0];
    if (groups.directive !== undefined) branches.read(text);
    if (groups.comment !== undefined || groups.directive !== undefined) continue;
    const kind = ['raw', 'string', 'char', 'number', 'word'].find(k => groups[k] !== undefined) ?? 'mark';
    const end = match.index + text.length;
    const spaced = /\s/.test(source[match.index - 1] ?? ' ') && /\s/.test(source[end] ?? ' ');
    tokens.push({ text, kind, begin: match.index, end, line, spaced, out: branches.out });
  }
  return tokens;
}

const closes = { '(': ')', '[': ']', '{': '}' };

// For each bracket the index of its partner.
function pairBrackets(tokens) {
  const partners = new Map();
  const open = [];
  tokens.forEach((token, i) => {
    if (token.kind !== 'mark') return;
    if (token.text in closes) {
      open.push(i);
    } else if (token.text === ')' || token.text === ']' || token.text === '}') {
      const begun = open.pop();
      if (begun === undefined) return;
      partners.set(begun, i);
      partners.set(i, begun);
    }
  });
  return partners;
}

module.exports = { readTokens, pairBrackets };
