// A result, shown in every form. Whatever it holds is put on the page as text, never as markup.

const MOST_TEXT = 50000;
const MOST_DUMPED = 4096;
const MOST_ESCAPED = 10000;

const number = (value) => value.toLocaleString('en');

/** Sixteen bytes a line: offset, digits, and what is printable ASCII. */
function hexDump(bytes) {
  const lines = [];
  for (let at = 0; at < bytes.length; at += 16) {
    const row = [...bytes.subarray(at, at + 16)];
    const digits = row.map((byte) => byte.toString(16).padStart(2, '0').toUpperCase());
    const shown = row.map((byte) => (byte >= 0x20 && byte < 0x7f ? String.fromCharCode(byte) : '.')).join('');
    const groups = [digits.slice(0, 8).join(' '), digits.slice(8).join(' ')].join('  ');
    lines.push(`${at.toString(16).padStart(8, '0').toUpperCase()}  ${groups.padEnd(48)}  ${shown}`);
  }
  return lines.join('\n');
}

const SHORT_ESCAPES = {'\n': '\\n', '\r': '\\r', '\t': '\\t', '"': '\\"', '\\': '\\\\'};

/** A literal with escapes, as most languages have it; bytes that are no text as \x. */
function escapedLiteral(text, bytes) {
  if (text === null) return `"${[...bytes].map((byte) => `\\x${byte.toString(16).padStart(2, '0').toUpperCase()}`).join('')}"`;
  const escapes = [...text].map((character) => {
    if (character in SHORT_ESCAPES) return SHORT_ESCAPES[character];
    const code = character.codePointAt(0);
    if (code >= 0x20 && code < 0x7f) return character;
    return code > 0xffff ? `\\U${code.toString(16).padStart(8, '0').toUpperCase()}`
      : `\\u${code.toString(16).padStart(4, '0').toUpperCase()}`;
  });
  return `"${escapes.join('')}"`;
}

/** An expression in the host's language, whose literals have no escapes but doubled quotation marks. */
function xojoExpression(text, bytes) {
  if (text === null) return `DecodeHex("${hexOf(bytes)}")`;
  const parts = text.match(/[^\u0000-\u001F\u007F-\u009F\u2028-\u202E\u2066-\u2069\uFEFF]+|[^]/gu) ?? [];
  const written = parts.map((part) => {
    const isPlain = part.length > 1 || !/[\u0000-\u001F\u007F-\u009F\u2028-\u202E\u2066-\u2069\uFEFF]/.test(part);
    return isPlain ? `"${part.replaceAll('"', '""')}"` : `&u${part.codePointAt(0).toString(16).padStart(2, '0').toUpperCase()}`;
  });
  return written.join(' + ') || '""';
}

/** A block with a heading, a button to copy it, and a remark where it is cut. */
function block(title, text, remark = '') {
  const copy = element('button', {type: 'button', class: 'plain copy'}, 'Copy');
  copy.addEventListener('click', async () => {
    await navigator.clipboard.writeText(text);
    copy.textContent = 'Copied';
    setTimeout(() => (copy.textContent = 'Copy'), 1500);
  });
  const head = element('div', {class: 'head'}, element('h2', {}, title), element('span', {class: 'note'}, remark), copy);
  const id = title.toLowerCase().replaceAll(' ', '-');
  return element('section', {class: 'form', id: `as-${id}`}, head, element('pre', {tabindex: '0'}, text));
}

const cut = (shown, all, what) => (all > shown ? `the first ${number(shown)} of ${number(all)} ${what}` : '');

function bytesShown({value, bytes}) {
  const parts = [];
  if (value !== null) parts.push(block('Text', value.slice(0, MOST_TEXT), cut(MOST_TEXT, value.length, 'UTF-16 units')));
  parts.push(block('Hex dump', hexDump(bytes.subarray(0, MOST_DUMPED)), cut(MOST_DUMPED, bytes.length, 'bytes')));
  const text = value === null ? null : value.slice(0, MOST_ESCAPED);
  const some = bytes.subarray(0, MOST_ESCAPED);
  const remark = cut(MOST_ESCAPED, value === null ? bytes.length : value.length, value === null ? 'bytes' : 'UTF-16 units');
  parts.push(block('Escaped source', escapedLiteral(text, some), remark));
  parts.push(block('Xojo source', xojoExpression(text, some), remark));
  return parts;
}

/** A line for each fact: [term, description]. */
function facts(rows) {
  return element('dl', {class: 'facts'}, ...rows.flatMap(([term, text]) => [element('dt', {}, term), element('dd', {}, text)]));
}

function factsOf({declaration, result}, milliseconds) {
  const rows = [['Called', declaration], ['Type', result.type]];
  if (result.bytes) {
    rows.push(['Size', `${number(result.bytes.length)} ${result.bytes.length === 1 ? 'byte' : 'bytes'}`]);
    if (result.type === 'string') rows.push(['Encoding', result.encoding ?? 'none, it is the null string']);
    const origin = result.same_argument === null ? 'new' : `argument ${result.same_argument} itself came back`;
    rows.push(['Handle', result.null ? (result.type === 'string' ? 'null' : 'nil') : origin]);
  }
  const {exception} = result;
  rows.push(['Exception', exception ? `${exception.class}: ${exception.message} (number ${exception.number})` : 'none']);
  rows.push(['Time', `${duration(milliseconds)}, setting up a fresh host included`]);
  return facts(rows);
}

const UNBALANCED = 3;

/** What broke a rule; where it isn't the plugin's fault, what stringhost says instead. */
function violationsShown({status, err, call: {violations}}) {
  if (violations.length === 0) return [];
  if (status === UNBALANCED) return [element('p', {class: 'problem'}, violations.join('; '))];
  const said = err.split('\n').filter((line) => line.startsWith('stringhost: '));
  return said.map((line) => element('p', {class: 'note'}, line.replace(/^stringhost: /, '')));
}

function servicesShown(reply) {
  const {services, references} = reply.call;
  const lines = services.map(({service, thing, encoding, made}) =>
    element('li', {}, element('code', {}, service), [thing, encoding].filter(Boolean).map((word) => `, ${word}`).join(''),
      made ? ` → ${made}` : ''));
  const balance = references.map(({thing, taken, dropped}) => element('li', {}, `${thing}: ${taken} taken, ${dropped} dropped`));
  const parts = [
    element('h2', {}, 'Host services called, in order'),
    lines.length > 0 ? element('ol', {id: 'services'}, ...lines) : element('p', {class: 'note'}, 'none'),
  ];
  if (balance.length > 0) parts.push(element('h2', {}, 'References'), element('ul', {}, ...balance));
  return element('section', {class: 'form services'}, ...parts, ...violationsShown(reply));
}

function saveLink(bytes) {
  const link = element('button', {type: 'button', class: 'plain'}, 'Save the bytes');
  link.addEventListener('click', () => {
    const address = URL.createObjectURL(new Blob([bytes]));
    element('a', {href: address, download: 'result.bin'}).click();
    setTimeout(() => URL.revokeObjectURL(address), 10000);
  });
  return link;
}

/** All there is to know of a call. */
function shownCall(reply) {
  const {call, milliseconds} = reply;
  const {result} = call;
  const parts = [factsOf(call, milliseconds)];
  if (result.bytes && !result.exception) {
    if (result.bytes.length > 0) parts.push(...bytesShown(result), saveLink(result.bytes));
    else parts.push(element('p', {class: 'note'}, 'It is empty.'));
  } else if (!result.bytes) {
    parts.push(block('Value', String(result.value)));
  }
  parts.push(servicesShown(reply));
  return parts;
}
