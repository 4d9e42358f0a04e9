// The playground: any method, called as the host does.

const form = document.getElementById('call');
const methodChoice = document.getElementById('method');
const encodingChoice = document.getElementById('encoding');
const versionField = document.getElementById('host-version');
const withoutField = document.getElementById('without');
const progress = document.getElementById('progress');
const cancelButton = document.getElementById('cancel');
const runButton = form.querySelector('button.run');
const resultView = document.getElementById('result');

const MOST_COMPLAINED = 2000;
const FIRST = {method: 'EncodingToHTMLZQV', arguments: ['<b>Tom & Jérôme</b>, 5 €']};

let methods = [];
let fields = [];

const optionProblems = new Map(
  [encodingChoice, versionField, withoutField].map((field) => {
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

/** The options of the command line as a link has them, [name, value], left out where they are the defaults. */
function linkedOptions(encoding, version, without) {
  const said = without.map((service) => ['without', service]);
  if (version !== '') said.unshift(['host', version]);
  if (encoding !== 'utf-8') said.unshift(['encoding', encoding]);
  return said;
}

function chosenOptions() {
  const without = withoutField.value.split(/[\s,]+/).filter((name) => name !== '');
  return linkedOptions(encodingChoice.value, versionField.value.trim(), without);
}

const OPTION_WORDS = {encoding: '--encoding', host: '--host-version', without: '--without'};

/** The options of the command line. */
const options = (said = chosenOptions()) => said.flatMap(([name, value]) => [OPTION_WORDS[name], value]);

/**
 * Fills in what a link says. Gives the call to run: one without words is the form's own; where the form cannot say what
 * the link says, as it may be wrong, the words are the link's. Null where it names no method.
 */
function restore(fragment) {
  const said = new URLSearchParams(fragment);
  if (!said.has('method')) return null;
  const name = said.get('method');
  const written = said.getAll('a');
  const method = overload(name, written.length);
  const shown = method ?? methods.find((other) => other.name.toLowerCase() === name.toLowerCase());
  if (shown) {
    methodChoice.selectedIndex = methods.indexOf(shown);
    showFields();
    written.slice(0, fields.length).forEach((argument, index) => (fields[index].argument = argument));
  }
  encodingChoice.value = said.get('encoding') ?? 'utf-8';
  if (encodingChoice.selectedIndex < 0) encodingChoice.value = 'utf-8';
  versionField.value = said.get('host') ?? '';
  withoutField.value = said.getAll('without').join(' ');

  const asked = linkedOptions(said.get('encoding') ?? 'utf-8', (said.get('host') ?? '').trim(), said.getAll('without'));
  const isSame = method && written.every((argument, index) => fields[index].holds(argument)) &&
    JSON.stringify(asked) === JSON.stringify(chosenOptions());
  return isSame ? {} : {options: options(asked), name, words: written, files: [], link: Promise.resolve(`#${said}`)};
}

/** The call as a fragment that restores it, or null where a file or a text is too large for one. */
async function fragment() {
  const said = new URLSearchParams([['method', methods[methodChoice.selectedIndex].name]]);
  const chosen = chosenOptions();
  const linked = await Promise.all(given(fields).map((field) => field.linked()));
  if (linked.includes(null)) return null;
  linked.forEach((argument) => said.append('a', argument));
  chosen.forEach(([name, value]) => said.append(name, value));
  return `#${said}`;
}

/** The call of the form as it is now, whatever is changed in it while the call runs. */
function formCall() {
  const link = fragment().catch(() => null);  // a file that cannot be read fails the call itself
  return {options: options(), name: methods[methodChoice.selectedIndex].name, ...namedFiles(), link};
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
  const half = MOST_COMPLAINED / 2;
  const words = all.length > MOST_COMPLAINED ? `${all.slice(0, half)} … ${all.slice(-half)}` : all;
  if (wrongArgument > 0) {
    fields[wrongArgument - 1].complain(words);
    fields[wrongArgument - 1].control.focus();
    return;
  }
  const starts = [['no such encoding', encodingChoice], ['--host-version', versionField], ['no such service', withoutField]];
  const about = starts.find(([start]) => words.startsWith(start))?.[1];
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
function again(link, words) {
  const line = quoted(['stringhost', 'call', ...words]);
  const parts = [];
  if (link) {
    parts.push(element('a', {id: 'permalink', href: link}, 'Link to this call'));
  } else {
    parts.push(element('p', {class: 'note'}, 'The call is too large for a link.'));
  }
  if (line.length < 10000) parts.push(block('On the command line', line));
  return element('section', {class: 'form again'}, ...parts);
}

/** Lets the address be a link to the call whose result is shown, or to none. */
const setAddress = (link) => history.replaceState(null, '', link ?? location.href.replace(/#.*/s, ''));

let running = 0;

function settle() {
  progress.classList.remove('busy');
  if (document.activeElement === cancelButton) runButton.focus();
  cancelButton.hidden = true;
}

/** Gives up the call that runs, if one does, with nothing said of it. */
function drop() {
  ++running;
  if (!cancelButton.hidden) engine.cancel();
  settle();
}

async function run(call) {
  drop();
  const turn = running;
  clearComplaints();
  const {options, name, words, files, link: linking} = call?.words ? call : formCall();
  const start = performance.now();
  const tick = () => {
    if (turn === running) progress.textContent = `calling ${name}, ${duration(performance.now() - start)} so far`;
  };
  progress.classList.add('busy');
  cancelButton.hidden = false;
  tick();
  const timer = setInterval(tick, 100);
  try {
    const [reply, link] = await Promise.all([engine.explain([...options, '--', name, ...words], files), linking]);
    if (turn !== running) return;
    setAddress(reply.call ? link : null);
    if (reply.call) {
      resultView.replaceChildren(...shownCall(reply), again(link, [...options, name, ...words]));
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
    if (turn === running) settle();
  }
}

async function begin() {
  progress.textContent = 'loading the plugin …';
  const {out} = await engine.runWords(['list', '--json']);
  methods = JSON.parse(out);
  methodChoice.replaceChildren(...methods.map(({declaration}) => element('option', {}, declaration)));
  restore(new URLSearchParams([['method', FIRST.method], ...FIRST.arguments.map((argument) => ['a', argument])]).toString());
  const call = restore(location.hash.slice(1));
  progress.textContent = '';
  if (call) await run(call);
  document.body.classList.add('ready');
}

methodChoice.addEventListener('change', () => {
  drop();
  setAddress(null);
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
addEventListener('hashchange', () => {
  const call = restore(location.hash.slice(1));
  if (call) run(call);
});
begin().catch((error) => (progress.textContent = error.message));
