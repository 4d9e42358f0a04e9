// The playground: any method, called as the host does.

const form = document.getElementById('call');
const methodChoice = document.getElementById('method');
const encodingChoice = document.getElementById('encoding');
const versionField = document.getElementById('host-version');
const withoutField = document.getElementById('without');
const progress = document.getElementById('progress');
const cancelButton = document.getElementById('cancel');
const resultView = document.getElementById('result');

const MOST_COMPLAINED = 2000;
const FIRST = {method: 'EncodingToHTMLZQV', arguments: ['<b>Tom & Jérôme</b>, 5 €']};

let methods = [];
let fields = [];

const optionProblems = new Map(
  [versionField, withoutField].map((field) => {
    const problem = element('p', {class: 'problem', role: 'alert'});
    field.after(problem);
    return [field, problem];
  }),
);

function showFields() {
  const method = methods[methodChoice.selectedIndex];
  fields = method.parameters.map(fieldFor);
  document.getElementById('arguments').replaceChildren(...fields.map((field) => field.root));
  const record = SEARCH_RECORDS.find(({name, isMethod}) => isMethod && name === method.name);
  const about = document.getElementById('about');
  about.href = record?.link ?? 'index.html';
  about.textContent = record?.summary || 'What it does';
}

/** The overload a call with these arguments means: the one with the fewest parameters that takes them. */
function overload(name, count) {
  const fitting = methods.filter((method) => {
    const needed = method.parameters.filter((parameter) => parameter.default === undefined).length;
    return method.name.toLowerCase() === name.toLowerCase() && needed <= count && count <= method.parameters.length;
  });
  return fitting.sort((a, b) => a.parameters.length - b.parameters.length)[0];
}

/** Fills in what a link says; false where it names no method. */
function restore(fragment) {
  const said = new URLSearchParams(fragment);
  const written = said.getAll('a');
  const method = overload(said.get('method') ?? '', written.length);
  if (!method) return false;
  methodChoice.selectedIndex = methods.indexOf(method);
  showFields();
  written.forEach((argument, index) => (fields[index].argument = argument));
  encodingChoice.value = said.get('encoding') ?? 'utf-8';
  if (encodingChoice.selectedIndex < 0) encodingChoice.value = 'utf-8';
  versionField.value = said.get('host') ?? '';
  withoutField.value = said.getAll('without').join(' ');
  return true;
}

const withheld = () => withoutField.value.split(/[\s,]+/).filter((name) => name !== '');

/** The options of the command line, left out where they are the defaults. */
function options() {
  const words = [];
  if (encodingChoice.value !== 'utf-8') words.push('--encoding', encodingChoice.value);
  if (versionField.value.trim() !== '') words.push('--host-version', versionField.value.trim());
  for (const service of withheld()) words.push('--without', service);
  return words;
}

/** The call as a fragment that restores it, or null where a file or a text is too large for one. */
async function fragment() {
  const linked = await Promise.all(given(fields).map((field) => field.linked()));
  if (linked.includes(null)) return null;
  const said = new URLSearchParams();
  said.append('method', methods[methodChoice.selectedIndex].name);
  linked.forEach((argument) => said.append('a', argument));
  if (encodingChoice.value !== 'utf-8') said.append('encoding', encodingChoice.value);
  if (versionField.value.trim() !== '') said.append('host', versionField.value.trim());
  for (const service of withheld()) said.append('without', service);
  return `#${said}`;
}

/** Words as they are typed into a shell. */
function quoted(words) {
  return words.map((word) => (/^[\w.:@%+=,-]+$/.test(word) ? word : `'${word.replaceAll("'", "'\\''")}'`)).join(' ');
}

/** Files by the names their arguments have; of two with one name the second is renamed. */
function namedFiles() {
  const files = [];
  const words = given(fields).map((field) => {
    const [file] = field.files;
    if (!file) return field.argument;
    const isTaken = files.some(({name, data}) => name === file.name && data !== file.data);
    const name = isTaken ? `${files.length + 1}-${file.name}` : file.name;
    if (!files.some((other) => other.name === name)) files.push({name, data: file.data});
    return `@${name}`;
  });
  return {files, words};
}

/** Puts what stringhost says about a wrong call beside the field it is about. */
function complain({err, wrongArgument}) {
  const all = err.replace(/^stringhost: /, '').trim();
  const words = all.length > MOST_COMPLAINED ? `${all.slice(0, MOST_COMPLAINED)} …` : all;
  if (wrongArgument > 0) {
    fields[wrongArgument - 1].complain(words);
    fields[wrongArgument - 1].input.focus();
    return;
  }
  const about = words.startsWith('--host-version') ? versionField : words.startsWith('no such service') ? withoutField : null;
  if (about) {
    optionProblems.get(about).textContent = words;
    about.focus();
  } else {
    resultView.replaceChildren(element('p', {class: 'problem'}, words));
    resultView.hidden = false;
  }
}

function clearComplaints() {
  for (const field of fields) field.complain('');
  for (const problem of optionProblems.values()) problem.textContent = '';
}

/** What stands below a result: the link that restores the call, and the same call on a command line. */
async function again(words) {
  const link = await fragment();
  const line = quoted(['stringhost', 'call', ...words]);
  const parts = [];
  if (link) {
    history.replaceState(null, '', link);
    parts.push(element('a', {id: 'permalink', href: link}, 'Link to this call'));
  } else {
    parts.push(element('p', {class: 'note'}, 'The call is too large for a link.'));
  }
  if (line.length < 10000) parts.push(block('On the command line', line));
  return element('section', {class: 'form again'}, ...parts);
}

let running = 0;

async function run() {
  const turn = ++running;
  clearComplaints();
  const {files, words} = namedFiles();
  const method = methods[methodChoice.selectedIndex];
  const all = [...options(), '--', method.name, ...words];
  const start = performance.now();
  const tick = () => (progress.textContent = `calling ${method.name}, ${duration(performance.now() - start)} so far`);
  progress.classList.add('busy');
  cancelButton.hidden = false;
  tick();
  const timer = setInterval(tick, 100);
  try {
    const reply = await engine.explain(all, files);
    if (turn !== running) return;
    if (reply.call) {
      resultView.replaceChildren(...shownCall(reply.call, reply.milliseconds), await again([...options(), method.name, ...words]));
      resultView.hidden = false;
    } else {
      resultView.hidden = true;
      complain(reply);
    }
    progress.textContent = reply.call ? `done in ${duration(performance.now() - start)}` : '';
  } catch (error) {
    if (turn === running) progress.textContent = error.message;
  } finally {
    clearInterval(timer);
    if (turn === running) {
      progress.classList.remove('busy');
      cancelButton.hidden = true;
    }
  }
}

async function begin() {
  progress.textContent = 'loading the plugin …';
  const {out} = await engine.runWords(['list', '--json']);
  methods = JSON.parse(out);
  methodChoice.replaceChildren(...methods.map(({declaration}) => element('option', {}, declaration)));
  const isRestored = restore(location.hash.slice(1));
  if (!isRestored) {
    restore(new URLSearchParams([['method', FIRST.method], ...FIRST.arguments.map((argument) => ['a', argument])]).toString());
  }
  progress.textContent = '';
  if (isRestored) await run();
  document.body.classList.add('ready');
}

methodChoice.addEventListener('change', () => {
  showFields();
  resultView.hidden = true;
  progress.textContent = '';
});
form.addEventListener('submit', (event) => {
  event.preventDefault();
  run();
});
form.addEventListener('keydown', (event) => {
  if (event.key === 'Enter' && (event.ctrlKey || event.metaKey)) run();
});
cancelButton.addEventListener('click', () => engine.cancel());
addEventListener('hashchange', () => restore(location.hash.slice(1)) && run());
begin().catch((error) => (progress.textContent = error.message));
