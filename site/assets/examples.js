// Examples that can be changed and run.

/** Makes an example of the page live. */
function enliven(example) {
  const shown = example.querySelector('code');
  const output = example.querySelector('.output samp');
  const documented = {command: shown.textContent, output: output.textContent};

  const field = element('textarea', {
    class: 'line', rows: '1', spellcheck: 'false', autocapitalize: 'off', autocomplete: 'off', 'aria-label': 'Command line',
  });
  field.value = documented.command;
  shown.replaceWith(field);
  const runButton = element('button', {type: 'button', class: 'run'}, 'Run');
  const resetButton = element('button', {type: 'button', class: 'plain', hidden: true}, 'Reset');
  const note = element('span', {class: 'note', role: 'status'});
  const actions = element('div', {class: 'actions'}, resetButton, runButton);
  if (example.dataset.playground) {
    actions.append(element('a', {class: 'plain', href: example.dataset.playground}, 'Playground'));
  }
  field.after(actions);
  example.append(note);

  function fit() {
    field.style.height = 'auto';
    field.style.height = `${field.scrollHeight}px`;
    resetButton.hidden = field.value === documented.command && output.textContent === documented.output;
  }

  async function run() {
    note.textContent = 'running …';
    example.classList.add('running');
    try {
      const {status, out, err, milliseconds} = await engine.runLine(field.value);
      output.textContent = out + err + (status === 0 ? '' : `[status ${status}]\n`);
      const isSame = output.textContent === documented.output;
      note.textContent = duration(milliseconds) + (field.value === documented.command && isSame ? ', as documented' : '');
      example.classList.toggle('failed', status !== 0);
    } catch (error) {
      note.textContent = error.message;
    }
    example.classList.remove('running');
    fit();
  }

  runButton.addEventListener('click', run);
  resetButton.addEventListener('click', () => {
    field.value = documented.command;
    output.textContent = documented.output;
    note.textContent = '';
    example.classList.remove('failed');
    fit();
    field.focus();
  });
  field.addEventListener('input', fit);
  field.addEventListener('keydown', (event) => {
    if (event.key !== 'Enter' || event.isComposing) return;
    event.preventDefault();
    run();
  });
  fit();
  return fit;
}

const fits = [...document.querySelectorAll('.example')].map(enliven);
addEventListener('resize', () => fits.forEach((fit) => fit()));
