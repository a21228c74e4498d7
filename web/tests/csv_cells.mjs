/** Rows of cells of comma-separated values (RFC 4180). */
export function csvCells(text) {
  const rows = [];
  let row = [];
  for (const [, quoted, plain, end] of text.matchAll(/(?:"((?:[^"]|"")*)"|([^,"\r\n]*))(,|\r\n)/g)) {
    row.push(quoted === undefined ? plain : quoted.replaceAll('""', '"'));
    if (end === ",") continue;
    rows.push(row);
    row = [];
  }
  return rows;
}
