'use strict';
// Finds the functions of a file that have a body.

// What a function gives back, as far as an early return has to know: 'void', 'bool', 'value', or ''
// where nothing can be given back without knowing more.
function givesBack(head, nameAt) {
  const before = head.slice(0, nameAt).map(token => token.text);
  if (before.includes('noreturn')) return '';
  const parameters = head.slice(nameAt).map(token => token.text);
  const arrow = parameters.lastIndexOf('->');
  const type = (arrow < 0 ? before : parameters.slice(arrow + 1))
    .filter(word => !['static', 'inline', 'constexpr', 'const', '[', ']', 'nodiscard'].includes(word));
  if (type.includes('&') || type.includes('auto')) return '';
  if (type.length === 1 && (type[0] === 'void' || type[0] === 'bool')) return type[0];
  return 'value';
}

// `head` is what stands before the body. The name is the last word before the first parenthesis.
function describe(head) {
  const texts = head.map(token => token.text);
  const paren = texts.indexOf('(');
  if (paren < 1) return null;
  let from = paren - 1;
  let name = texts[from];
  if (texts.slice(Math.max(0, paren - 4), paren).includes('operator')) {
    from = texts.lastIndexOf('operator', paren);
    name = texts.slice(from, paren).join('');
  }
  const isDestructor = texts[from - 1] === '~';
  if (isDestructor) from -= 1;
  let owner = '';
  while (texts[from - 1] === '::' && head[from - 2]?.kind === 'word') {
    owner = owner || texts[from - 2];
    from -= 2;
  }
  const isConstructor = !isDestructor && owner === texts[paren - 1];
  const typed = head.slice(0, from).some(token => token.kind === 'word' && !['explicit', 'inline', 'constexpr'].includes(token.text));
  const back = isConstructor || isDestructor || !typed ? 'void' : givesBack(head, from);
  return { name: (owner ? owner + '::' : '') + (isDestructor ? '~' : '') + name, back,
    isConstexpr: texts.slice(0, paren).includes('constexpr') || texts.includes('consteval') };
}

// Whether the brace after `head` initialises a member instead of opening the body.
function initialisesMember(head) {
  let depth = 0;
  let afterParameters = false;
  let inList = false;
  for (const { text } of head) {
    if (text === '(') ++depth;
    else if (text === ')') {
      --depth;
      afterParameters ||= depth === 0;
    } else if (text === ':' && depth === 0 && afterParameters) inList = true;
  }
  const last = head.at(-1);
  return inList && (last.kind === 'word' || last.text === '>');
}

// A constant with braces for its value, whose type is written with parentheses.
function isValue(head) {
  const texts = head.map(token => token.text);
  const last = head.at(-1);
  return last.kind === 'word' && !['const', 'noexcept', 'override', 'final', 'mutable', 'try'].includes(last.text) &&
    texts.indexOf('->', texts.indexOf('(')) < 0;
}

// As a lambda among the arguments of what initialises a member.
function isInParentheses(head) {
  const count = text => head.filter(token => token.kind === 'mark' && token.text === text).length;
  return count('(') > count(')');
}

function isAssigned(head) {
  let depth = 0;
  return head.some(({ text }, i) => {
    if (text === '(') ++depth;
    if (text === ')') --depth;
    return text === '=' && depth === 0 && head[i - 1]?.text !== 'operator';
  });
}

// Functions with `name`, `open` and `close` (indexes of the braces), `back` and `isConstexpr`.
function readFunctions(tokens, partners) {
  const found = [];
  let head = [];
  for (let i = 0; i < tokens.length; ++i) {
    const { text, kind } = tokens[i];
    if (kind === 'mark' && text === '{') {
      const words = head.map(token => token.text);
      const close = partners.get(i) ?? tokens.length - 1;
      const isClass = !words.includes('(') && !isAssigned(head) &&
        ['class', 'struct', 'union'].some(word => words.includes(word));
      if (words.includes('namespace') || words.includes('extern') || isClass) {
        head = [];
        continue;
      }
      if (isInParentheses(head) || initialisesMember(head)) {
        head.push(...tokens.slice(i, close + 1));
        i = close;
        continue;
      }
      const described = head.length === 0 || words.includes('enum') || isAssigned(head) || isValue(head) ? null : describe(head);
      if (described) found.push({ ...described, open: i, close });
      head = [];
      i = close;
    } else if (kind === 'mark' && (text === ';' || text === '}')) {
      head = [];
    } else if (kind === 'mark' && text === ':' && ['public', 'private', 'protected'].includes(head.at(-1)?.text)) {
      head = [];
    } else {
      head.push(tokens[i]);
    }
  }
  return found;
}

module.exports = { readFunctions };
