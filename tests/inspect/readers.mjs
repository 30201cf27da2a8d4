// readers.mjs BEFORE.pgn AFTER.pgn: what tests/other_readers has read, game by game; the status is 1 if a game that could
// be read before cannot be read after, or differs by more than values and their Annotator.
import { readFileSync } from 'node:fs';
import { Chess } from 'chess.js';
import { parsePgn } from 'chessops/pgn';

const gamesOf = (file) => readFileSync(file, 'latin1').split(/^(?=\[Event )/m);
const [before, after] = process.argv.slice(2).map(gamesOf);
const hasValue = (comment) => comment.includes('[%eval');
const plain = (comments) =>
  comments.map((text) => text.replace(/\[%eval [^\]]*\]/g, ' ').replace(/\s+/g, ' ').trim()).filter((text) => text);
const headersOf = (pairs) => [...pairs].filter(([name]) => name !== 'Annotator');

const readers = {
  'chess.js': (text) => {
    const chess = new Chess();
    chess.loadPgn(text);
    const comments = chess.getComments();
    return {
      game: [headersOf(Object.entries(chess.getHeaders())), chess.history(),
        comments.map(({ fen, comment }) => [fen, plain([comment])]).filter(([, kept]) => kept.length > 0)],
      values: comments.filter(({ comment }) => hasValue(comment)).length,
    };
  },
  chessops: (text) => {
    let values = 0;
    const tree = (node) => node.children.map((child) => {
      const { san, nags = [], comments = [], startingComments = [] } = child.data;
      values += comments.some(hasValue);
      return [san, nags, plain(comments), plain(startingComments), tree(child)];
    });
    return { game: parsePgn(text).map(({ headers, moves }) => [headersOf(headers), tree(moves)]), values };
  },
};

if (before.length !== after.length) throw Error(`${before.length} games before, ${after.length} after`);
for (const [name, read] of Object.entries(readers)) {
  const counts = { before: 0, after: 0, same: 0, values: 0 };
  before.forEach((text, index) => {
    const attempt = (game) => {
      try {
        return read(game);
      } catch {
        return undefined;
      }
    };
    const was = text.trim() ? attempt(text) : undefined;
    if (!was) return;
    ++counts.before;
    const is = attempt(after[index]);
    if (!is) return console.log(`${name}: game ${index + 1} cannot be read any more`);
    ++counts.after;
    counts.values += is.values;
    if (JSON.stringify(was.game) === JSON.stringify(is.game)) ++counts.same;
    else console.log(`${name}: game ${index + 1} is another one`);
  });
  console.log(`${name}: ${counts.before} games before, ${counts.after} after, ${counts.same} the same, ${counts.values} values`);
  if (counts.same !== counts.before) process.exitCode = 1;
}
