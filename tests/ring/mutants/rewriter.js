'use strict';
// Puts the pieces of all places of a file in, so that each fault can be switched on while the program
// runs. No line is added: what the compiler says of a line is of the line of the source.

// The text with the pieces, and for each place where its pieces lie in it (`spans`), as line and
// columns. Places have a `number`.
function rewrite(source, places) {
  const pieces = places.flatMap(place => place.pieces.map(piece => ({ ...piece, place })));
  // What goes behind a place comes first, then what goes before one; what is wider is outside.
  pieces.sort((a, b) => a.at - b.at || a.before - b.before ||
    (a.before ? b.width - a.width : a.width - b.width) ||
    (a.before ? a.place.number - b.place.number : b.place.number - a.place.number));
  let text = '';
  let line = 1;
  let column = 1;
  let at = 0;
  const spans = [];
  const put = part => {
    text += part;
    const cut = part.lastIndexOf('\n');
    line += part.split('\n').length - 1;
    column = cut < 0 ? column + part.length : part.length - cut;
  };
  for (const piece of pieces) {
    put(source.slice(at, piece.at));
    at = piece.at;
    const from = column;
    put(piece.make(piece.place.number));
    spans.push({ number: piece.place.number, line, from, to: column });
  }
  put(source.slice(at));
  return { text, spans };
}

// The source with the fault of one place.
function changed(source, place) {
  return source.slice(0, place.begin) + place.text + source.slice(place.end);
}

module.exports = { rewrite, changed };
