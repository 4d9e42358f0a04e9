// The page's side of the worker that runs the plugin.

/** Runs command lines of stringhost, one after the other, without holding up the page. */
class Engine {
  #worker = null;
  #loading = null;
  #waiting = new Map();
  #nextId = 1;

  /** Runs a line as typed into a shell: {status, out, err, milliseconds}. */
  runLine(line) {
    return this.#send({line});
  }

  /** Runs words that follow the program's name; `files` are [{name, data}], found by an argument @name. */
  runWords(words, files = []) {
    return this.#send({words, files});
  }

  /** Runs `explain --json` and gives what it told as `call`, with `call.result.bytes` where the result has bytes. */
  explain(words, files = []) {
    return this.#send({words: ['explain', '--json', ...words], files, explains: true});
  }

  /** Gives up whatever is running or waiting. */
  cancel() {
    this.#worker?.terminate();
    this.#worker = null;
    for (const {reject} of this.#waiting.values()) reject(new Error('cancelled'));
    this.#waiting.clear();
  }

  async #send(request) {
    await this.#load();
    this.#worker ??= this.#start();
    const id = this.#nextId++;
    return new Promise((resolve, reject) => {
      this.#waiting.set(id, {resolve, reject});
      this.#worker.postMessage({...request, id});
    });
  }

  /** Reads the plugin when it is first needed. */
  #load() {
    this.#loading ??= new Promise((resolve, reject) => {
      const script = document.createElement('script');
      script.src = 'machine.js';
      script.onload = resolve;
      script.onerror = () => reject(new Error('machine.js could not be read'));
      document.head.append(script);
    });
    return this.#loading;
  }

  #start() {
    const source = new Blob(['const MODULE = "', MODULE, '";\n', WORKER], {type: 'text/javascript'});
    const address = URL.createObjectURL(source);
    const worker = new Worker(address);
    worker.onmessage = ({data: {id, answer, failure}}) => {
      const {resolve, reject} = this.#waiting.get(id);
      this.#waiting.delete(id);
      if (failure === undefined) resolve(answer);
      else reject(new Error(failure));
    };
    worker.onerror = (event) => {
      const {message} = event;
      this.cancel();
      throw new Error(message);
    };
    return worker;
  }
}

const engine = new Engine();

/** An element with attributes and children; texts stay texts. */
function element(name, attributes = {}, ...children) {
  const made = document.createElement(name);
  for (const [key, value] of Object.entries(attributes)) {
    if (key in made && typeof value !== 'string') made[key] = value;
    else made.setAttribute(key, value);
  }
  made.append(...children);
  return made;
}

/** "0.4 ms", "12 ms", "3.1 s". */
function duration(milliseconds) {
  if (milliseconds >= 1000) return `${(milliseconds / 1000).toFixed(1)} s`;
  return `${milliseconds.toFixed(milliseconds < 10 ? 1 : 0)} ms`;
}
