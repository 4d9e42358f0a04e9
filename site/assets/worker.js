// The worker: runs command lines of stringhost, each in a fresh instance of the module. It is put together with the
// module and its glue into one script; `MODULE` is the module in base64.

const compiled = WebAssembly.compile(Uint8Array.from(atob(MODULE), (c) => c.charCodeAt(0)));

/** A fresh instance, as fresh as a process: no call sees what the plugin kept of another. */
async function freshInstance() {
  const module = await compiled;
  return createStringhost({
    instantiateWasm(imports, receive) {
      WebAssembly.instantiate(module, imports).then((instance) => receive(instance));
      return {};
    },
  });
}

/** The words, each with its length in four bytes before it. */
function packed(words) {
  const encoded = words.map((word) => new TextEncoder().encode(word));
  const bytes = new Uint8Array(encoded.reduce((size, word) => size + 4 + word.length, 0));
  const view = new DataView(bytes.buffer);
  let at = 0;
  for (const word of encoded) {
    view.setUint32(at, word.length, true);
    bytes.set(word, at + 4);
    at += 4 + word.length;
  }
  return bytes;
}

/** From here on a file is only looked at through the browser: such a one is too large to be read. */
const LARGE = 2 ** 30;

/** Puts files where their names find them. Read in one go: through the browser each block would be asked for anew. */
async function provide(host, files) {
  const isLarge = ({data}) => data.size >= LARGE;
  host.FS.mkdir('/files');
  host.FS.mkdir('/large');
  host.FS.mount(host.WORKERFS, {blobs: files.filter(isLarge).map(({name, data}) => ({name, data}))}, '/large');
  for (const file of files) {
    if (isLarge(file)) host.FS.symlink(`/large/${file.name}`, `/files/${file.name}`);
    else host.FS.writeFile(`/files/${file.name}`, new Uint8Array(await file.data.arrayBuffer()), {canOwn: true});
  }
  host.FS.chdir('/files');
}

/** The colours of a terminal, which a page shows as they stand. */
const COLOURS = /\x1b\[[\d;]*m/g;

/** Runs a line, or words that follow the program's name. Files are found by their names. */
async function run({line, words, files}) {
  const host = await freshInstance();
  if (files && files.length > 0) await provide(host, files);
  const input = words ? packed(words) : new TextEncoder().encode(line);
  const address = host._malloc(Math.max(input.length, 1)) >>> 0;
  if (address === 0) return {status: 2, wrongArgument: 0, out: '', err: 'stringhost: not enough memory\n'};
  host.HEAPU8.set(input, address);
  const reply = (words ? host._run_words(address, input.length) : host._run_line(address, input.length)) >>> 2;
  const [status, wrongArgument, out, outSize, err, errSize] = host.HEAPU32.subarray(reply, reply + 6);
  const text = (from, size) => new TextDecoder('utf-8', {ignoreBOM: true}).decode(host.HEAPU8.subarray(from, from + size));
  const printed = text(out, outSize);
  return {status, wrongArgument, out: words ? printed : printed.replaceAll(COLOURS, ''), err: text(err, errSize)};
}

function bytesOf(digits) {
  const value = (code) => (code < 58 ? code - 48 : code - 55);
  const bytes = new Uint8Array(digits.length / 2);
  for (let i = 0; i < bytes.length; ++i) {
    bytes[i] = value(digits.charCodeAt(2 * i)) * 16 + value(digits.charCodeAt(2 * i + 1));
  }
  return bytes;
}

/** What `explain --json` told, with bytes as bytes, and without the arguments, which the page knows. */
function explained(reply) {
  if (reply.out === '') return reply;
  const {declaration, services, references, violations, result} = JSON.parse(reply.out);
  if (result.hex !== undefined) result.bytes = bytesOf(result.hex);
  delete result.hex;
  return {...reply, out: '', call: {declaration, services, references, violations, result}};
}

let last = Promise.resolve();

self.onmessage = ({data}) => {
  last = last.then(async () => {
    try {
      const start = performance.now();
      const reply = await run(data);
      const answer = data.explains ? explained(reply) : reply;
      answer.milliseconds = performance.now() - start;
      const bytes = answer.call?.result.bytes;
      self.postMessage({id: data.id, answer}, bytes ? [bytes.buffer] : []);
    } catch (error) {
      self.postMessage({id: data.id, failure: String(error)});
    }
  });
};
