'use strict';
// Finds the places of a function where one small fault can be made. A place tells the fault twice: as
// a change of the text (`begin`, `end`, `text`), which is shown, and as pieces to put in (`pieces`),
// which make it one that is switched on while the program runs. Pieces add no lines.

const comparisons = { '<': ['<=', 'Less'], '<=': ['<', 'LessEqual'], '>': ['>=', 'Greater'],
  '>=': ['>', 'GreaterEqual'], '==': ['!=', 'Equal'], '!=': ['==', 'NotEqual'] };
const arithmetic = { '+': ['-', 'Plus'], '-': ['+', 'Minus'], '*': ['/', 'Times'], '/': ['*', 'Over'],
  '%': ['*', 'Rest'] };
const assignments = new Set(['=', '+=', '-=', '*=', '/=', '%=', '|=', '&=', '^=', '<<=', '>>=']);
const noStatement = new Set(('alignas asm auto break case catch class const constexpr continue default ' +
  'delete do else enum for goto if namespace private protected public return static static_assert ' +
  'struct switch template thread_local throw try typedef typename union using while').split(' '));
// What is no behaviour: what is checked for programmers, and what only saves time or space.
const noBehaviour = new Set(['assert', 'static_assert', 'reserve', 'shrink_to_fit', 'cerr', 'clog']);

class Places {
  constructor(source, tokens, partners, fn) {
    Object.assign(this, { source, tokens, partners, fn, found: [] });
    this.on = fn.isConstexpr ? 'zv_mutant::On' : 'zv_mutant::Active';
    this.parents = this.readParents();
    this.frozen = this.readFrozen();
  }

  text(i) { return this.tokens[i]?.text; }
  isMark(i, text) { return this.tokens[i]?.kind === 'mark' && this.tokens[i].text === text; }
  * inside() { for (let i = this.fn.open + 1; i < this.fn.close; ++i) if (!this.frozen.has(i)) yield i; }
  opens(i) { return this.tokens[i].kind === 'mark' && '([{'.includes(this.tokens[i].text) && this.partners.has(i); }

  // For each token the bracket that it stands in.
  readParents() {
    const parents = new Map();
    const stack = [this.fn.open];
    for (let i = this.fn.open + 1; i < this.fn.close; ++i) {
      if (this.partners.get(i) === stack.at(-1)) stack.pop();
      parents.set(i, stack.at(-1));
      if (this.opens(i)) stack.push(i);
    }
    return parents;
  }

  freeze(frozen, from, to) { for (let i = from; i <= to; ++i) frozen.add(i); }
  statementEnd(i) {
    for (; i < this.fn.close; ++i) {
      if (this.opens(i)) i = this.partners.get(i);
      else if (this.isMark(i, ';') || this.isMark(i, '}')) return i;
    }
    return i;
  }

  // Tokens that are worked out by the compiler, and what is no behaviour.
  readFrozen() {
    const frozen = new Set();
    for (let i = this.fn.open + 1; i < this.fn.close; ++i) {
      const { text, kind, out } = this.tokens[i];
      if (out) frozen.add(i);
      if (text === 'if' && this.text(i + 1) === 'constexpr') this.freeze(frozen, i, this.partners.get(i + 2));
      else if (text === 'constexpr' || text === 'static_assert' || text === 'using') this.freeze(frozen, i, this.statementEnd(i));
      else if (text === 'case') {
        let to = i;
        while (to < this.fn.close && !this.isMark(to, ':')) ++to;
        this.freeze(frozen, i, to);
      } else if (['class', 'struct', 'enum', 'union'].includes(text)) {
        // What a function declares for itself is no statement.
        const brace = [i + 1, i + 2, i + 3].find(at => this.isMark(at, '{'));
        if (brace) this.freeze(frozen, i, this.partners.get(brace));
      } else if (kind === 'word' && noBehaviour.has(text)) {
        const line = this.tokens[i].line;
        let from = i;
        while (this.tokens[from - 1]?.line === line && from - 1 > this.fn.open) --from;
        this.freeze(frozen, from, this.statementEnd(i));
      } else if (this.isMark(i, '<') && this.tokens[i - 1].kind === 'word' && this.tokens[i - 1].end === this.tokens[i].begin) {
        this.freeze(frozen, i, this.templateEnd(i));
      }
    }
    return frozen;
  }
  templateEnd(i) {
    let depth = 0;
    for (let j = i; j < this.fn.close; ++j) {
      if (this.opens(j)) j = this.partners.get(j);
      else if (this.isMark(j, '<')) ++depth;
      else if (this.isMark(j, '>') && --depth === 0) return j;
      else if (this.isMark(j, ';')) break;
    }
    return i;
  }

  // The pieces go before `begin`, the others behind `end`.
  wrap(kind, from, to, before, behind, shown) {
    const begin = this.tokens[from].begin;
    const end = this.tokens[to].end;
    this.add(kind, from, begin, end, shown, [
      { at: begin, before: true, width: end - begin, make: before },
      { at: end, before: false, width: end - begin, make: () => behind }]);
  }
  add(kind, i, begin, end, text, pieces) {
    this.found.push({ kind, line: this.tokens[i].line, begin, end, text, pieces });
  }

  infix() {
    for (const i of this.inside()) {
      const { text, kind, spaced, begin, end } = this.tokens[i];
      if (kind !== 'mark' || !spaced || this.text(i - 1) === 'operator') continue;
      const [table, name] = text in comparisons ? [comparisons, 'comparison'] : [arithmetic, 'arithmetic'];
      if (!(text in table)) continue;
      const [other, type] = table[text];
      const before = this.tokens[i - 1];
      if (before.kind === 'mark' && ![')', ']', '}', '>'].includes(before.text)) continue;
      this.add(name, i, begin, end, other, [{ at: end, before: false, width: 0,
        make: n => ` zv_mutant::${type}<${n}>{} ${text}` }]);
    }
  }

  // The range around `i` between marks of `stops` at the same depth.
  side(i, step, stops) {
    const parent = this.parents.get(i);
    let at = i;
    for (;;) {
      const next = at + step;
      const text = this.text(next);
      const isEdge = next === parent || next === this.partners.get(parent) || next === this.fn.open;
      if (isEdge || (this.tokens[next].kind !== 'string' && stops.has(text))) return at;
      at = this.parents.get(next) === parent && (step < 0 ? /[)\]}]/ : /[([{]/).test(text) &&
        this.tokens[next].kind === 'mark' ? this.partners.get(next) : next;
    }
  }
  logic() {
    const lower = [',', ';', '=', '?', ':', 'return', '+=', '-=', '|=', '&=', 'co_return', 'throw', '||'];
    const seen = new Set();
    for (const i of this.inside()) {
      const { text, kind, spaced } = this.tokens[i];
      if (kind !== 'mark' || !spaced || (text !== '&&' && text !== '||')) continue;
      const stops = new Set(text === '&&' ? [...lower, '&&'] : lower);
      for (const [from, to] of [[this.side(i, -1, stops), i - 1], [i + 1, this.side(i, 1, stops)]]) {
        const key = `${from} ${to} ${text}`;
        if (seen.has(key) || from > to) continue;
        seen.add(key);
        if (text === '&&') this.wrap('operand', from, to, n => `(${this.on}(${n}) || (`, '))', 'true');
        else this.wrap('operand', from, to, n => `(!${this.on}(${n}) && (`, '))', 'false');
      }
    }
  }

  slice(from, to) { return this.source.slice(this.tokens[from].begin, this.tokens[to].end); }
  // Marks that stand in [from, to] and in no bracket there.
  * outer(from, to) {
    for (let i = from; i <= to; ++i) {
      yield i;
      if (this.opens(i)) i = this.partners.get(i);
    }
  }
  outerTexts(from, to) { return [...this.outer(from, to)].filter(i => this.tokens[i].kind !== 'string').map(i => this.text(i)); }
  // A comparison alone has a fault of its own that says the same.
  isEquality(from, to) {
    const texts = this.outerTexts(from, to);
    return (texts.includes('==') || texts.includes('!=')) && !texts.includes('&&') && !texts.includes('||');
  }
  negate(kind, from, to) {
    if (from > to || this.isEquality(from, to)) return;
    this.wrap(kind, from, to, n => `(${this.on}(${n}) != bool(`, '))', `!(${this.slice(from, to)})`);
  }
  conditions() {
    for (const i of this.inside()) {
      const text = this.text(i);
      if ((text === 'if' || text === 'while') && this.isMark(i + 1, '(')) {
        const close = this.partners.get(i + 1);
        let from = i + 2;
        for (const j of this.outer(i + 2, close - 1)) if (this.isMark(j, ';')) from = j + 1;
        if (!this.outerTexts(from, close - 1).includes('=')) this.negate('condition', from, close - 1);
      } else if (this.isMark(i, '?')) {
        const stops = new Set([',', ';', '=', '?', ':', 'return', '+=', '-=', '|=', '&=', 'throw', '<<']);
        this.negate('condition', this.side(i, -1, stops), i - 1);
      }
    }
  }

  // The body of the innermost lambda that the token stands in, or that of the function.
  bodyOf(i) {
    for (let at = this.parents.get(i); at !== this.fn.open; at = this.parents.get(at)) {
      if (this.isMark(at, '{') && this.beginsLambda(at)) return at;
    }
    return this.fn.open;
  }
  beginsLambda(brace) {
    let i = brace - 1;
    while (this.tokens[i].kind === 'word' || ['->', '::', '<', '>', '*', '&', ','].includes(this.text(i))) --i;
    if (this.isMark(i, ')')) i = this.partners.get(i) - 1;
    return this.isMark(i, ']');
  }
  returns() {
    for (const i of this.inside()) {
      if (this.text(i) !== 'return' || this.isMark(i + 1, ';')) continue;
      const end = this.statementEnd(i) - 1;
      const texts = this.outerTexts(i + 1, end);
      if (end === i + 1 && (texts[0] === 'true' || texts[0] === 'false')) continue;
      const says = ['&&', '||', '==', '!='].some(mark => texts.includes(mark)) || texts[0] === '!';
      const chooses = texts.includes('?') || texts.includes('<<');
      const isBool = this.fn.back === 'bool' && this.bodyOf(i) === this.fn.open;
      if (isBool ? !chooses : says && !chooses) this.negate('return', i + 1, end);
    }
  }

  constants() {
    for (const i of this.inside()) {
      const { text, kind } = this.tokens[i];
      if (text === 'true' || text === 'false') {
        this.wrap('constant', i, i, n => `(${this.on}(${n}) != `, ')', text === 'true' ? 'false' : 'true');
        continue;
      }
      const match = /^(\d[\d']*)([uUlLzZ]*)$/.exec(text);
      if (kind !== 'number' || !match || /^0\d/.test(text)) continue;
      const value = BigInt(match[1].replaceAll("'", ''));
      const others = value === 0n ? [1n] : [value + 1n, value - 1n];
      for (const other of others) {
        const shown = other + match[2];
        this.wrap('constant', i, i, n => `(${this.on}(${n}) ? ${shown} : `, ')', shown);
      }
    }
  }

  * statementStarts() {
    for (const i of this.inside()) {
      if (!this.isMark(this.parents.get(i), '{') || this.frozen.has(i)) continue;
      const before = this.text(i - 1);
      const isHead = before === ')' && ['if', 'for', 'while'].includes(this.text(this.partners.get(i - 1) - 1));
      if (this.tokens[i - 1].kind === 'string') continue;
      if (['{', '}', ';', 'else'].includes(before) || isHead || (before === ':' && this.frozen.has(i - 1)) ||
        (before === ':' && this.text(i - 2) === 'default')) yield i;
    }
  }
  declares(from, to) {
    const texts = [...this.outer(from, to)];
    return texts.some((at, n) => {
      if (n === 0 || this.tokens[at].kind !== 'word') return false;
      const before = this.tokens[at - 1];
      return before.kind === 'word' || ['>', '&', '*', '&&'].includes(before.text);
    });
  }
  statements() {
    for (const i of this.statementStarts()) {
      const { text, kind } = this.tokens[i];
      if (noStatement.has(text) || (kind !== 'word' && !['++', '--', '*', '('].includes(text))) continue;
      const end = this.statementEnd(i);
      if (!this.isMark(end, ';')) continue;
      const outer = [...this.outer(i, end - 1)];
      const assigned = outer.find(at => this.tokens[at].kind === 'mark' && assignments.has(this.text(at)));
      if (this.declares(i, assigned === undefined ? end - 1 : assigned - 1)) continue;
      if (assigned === undefined && ![')', '++', '--'].includes(this.text(end - 1)) && text !== '++' && text !== '--') continue;
      this.wrap('statement', i, end, n => `{ if (!${this.on}(${n})) `, ' }', ';');
    }
  }

  early() {
    const { open, close, back, name } = this.fn;
    if (back === '' || name === 'main' || close - open < 2 || this.tokens[open].out) return;
    // What gives nothing back but this is the same.
    const body = this.tokens.slice(open + 1, close).map(token => token.text).join(' ');
    if (/^return ({ }|false|0|nullptr|"") ;$/.test(body)) return;
    const gives = back === 'void' ? 'return;' : 'return {};';
    const at = this.tokens[open].end;
    this.add('early', open, at, at, ` ${gives}`, [{ at, before: false, width: 0, make: n => ` if (${this.on}(${n})) ${gives}` }]);
  }

  read() {
    this.infix();
    this.logic();
    this.conditions();
    this.returns();
    this.constants();
    this.statements();
    this.early();
    return this.found;
  }
}

function placesOf(source, tokens, partners, fn) {
  return new Places(source, tokens, partners, fn).read();
}

module.exports = { placesOf };
