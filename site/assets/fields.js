// A field for each parameter of a method, and the arguments as stringhost takes them on its command line.

const MOST_BYTES_IN_LINK = 65536;

const hexOf = (bytes) => [...bytes].map((byte) => byte.toString(16).padStart(2, '0').toUpperCase()).join('');

/** Text as an argument: as it is, unless it would be taken for something else. */
function textArgument(text) {
  const isPlain = text !== '' && text !== 'nil' && !/^([-@]|hex:|text:)/.test(text);
  return isPlain ? text : `text:${text}`;
}

/** What an argument of a string or a memory block is: {kind, value}. */
function readArgument(written, type) {
  if (written === '' || (written === 'nil' && type === 'memoryblock')) return {kind: 'null', value: ''};
  if (written.startsWith('hex:')) return {kind: 'hex', value: written.slice(4)};
  if (written.startsWith('text:')) return {kind: 'text', value: written.slice(5)};
  if (written.startsWith('@')) return {kind: 'file', value: ''};
  return {kind: 'text', value: written};
}

/** What is common to all fields: the label, the hint below it, and the place for what is wrong. */
class Field {
  constructor(parameter, index) {
    this.parameter = parameter;
    const id = `argument-${index}`;
    this.problem = element('p', {class: 'problem', id: `${id}-problem`, role: 'alert'});
    this.label = element('label', {for: id}, parameter.name, ' ', element('span', {class: 'type'}, parameter.type));
    this.root = element('div', {class: 'field argument'}, this.label, ...this.controls(id), this.problem);
    this.input.setAttribute('aria-describedby', this.problem.id);
  }

  complain(words) {
    this.problem.textContent = words;
    this.input.setAttribute('aria-invalid', String(words !== ''));
  }

  /** What the argument is given with. */
  get control() {
    return this.input;
  }

  get defaultHint() {
    return this.parameter.default === undefined ? '' : `default: ${this.parameter.default || 'empty'}`;
  }

  /** Files the argument names. */
  get files() {
    return [];
  }
}

/** A number or a boolean. */
class PlainField extends Field {
  controls(id) {
    const attributes = {id, spellcheck: 'false', placeholder: this.defaultHint};
    if (this.parameter.type === 'boolean') {
      const choices = ['false', 'true'].map((value) => element('option', {}, value));
      if (this.parameter.default !== undefined) choices.unshift(element('option', {value: ''}, this.defaultHint));
      this.input = element('select', {id}, ...choices);
    } else {
      this.input = element('input', {...attributes, inputmode: this.parameter.type === 'integer' ? 'numeric' : 'decimal'});
      if (this.parameter.default === undefined) this.input.value = this.parameter.type === 'double' ? '0.5' : '1';
    }
    return [this.input];
  }

  get isDefault() {
    return this.input.value === '' && this.parameter.default !== undefined;
  }

  get argument() {
    return this.isDefault ? this.parameter.default : this.input.value;
  }

  set argument(written) {
    const names = {0: 'false', 1: 'true'};
    const isBoolean = this.parameter.type === 'boolean';
    this.input.value = isBoolean ? names[written] ?? written.toLowerCase() : written;
  }

  /** Whether the field could take an argument as it was put there. */
  holds(written) {
    return this.argument === written;
  }

  linked() {
    return this.argument;
  }
}

/** A string or a memory block: text, hex digits, a file, or null. */
class BytesField extends Field {
  controls(id) {
    const isBlock = this.parameter.type === 'memoryblock';
    const kinds = [['text', 'Text'], ['hex', 'Hex'], ['file', 'File'], ['null', isBlock ? 'Nil' : 'Null']];
    if (this.parameter.default !== undefined) kinds.unshift(['default', 'Default']);
    this.kinds = element('div', {class: 'kinds', role: 'radiogroup', 'aria-label': `How ${this.parameter.name} is given`});
    for (const [value, name] of kinds) {
      const radio = element('input', {type: 'radio', name: `${id}-kind`, value});
      radio.addEventListener('change', () => this.show());
      this.kinds.append(element('label', {}, radio, name));
    }
    this.input = element('textarea', {id, rows: '1', spellcheck: 'false', placeholder: this.defaultHint});
    this.chooser = element('input', {type: 'file', 'aria-label': `File for ${this.parameter.name}`});
    this.size = element('p', {class: 'hint'});
    this.chooser.addEventListener('change', () => this.show());
    this.file = null;
    this.restored = null;
    this.kind = kinds[0][0];
    return [this.kinds, this.input, this.chooser, this.size];
  }

  get kind() {
    return this.kinds.querySelector('input:checked').value;
  }

  set kind(value) {
    this.kinds.querySelector(`input[value=${value}]`).checked = true;
    this.show();
  }

  show() {
    const {kind} = this;
    this.input.hidden = kind !== 'text' && kind !== 'hex';
    this.input.classList.toggle('digits', kind === 'hex');
    this.chooser.hidden = kind !== 'file';
    this.file = this.chooser.files[0] ?? null;
    this.size.textContent = kind === 'file' && this.file ? `${this.file.size.toLocaleString('en')} bytes` : '';
  }

  get isDefault() {
    return this.kind === 'default';
  }

  /** The name a file goes by; two files of one name are told apart by the page. */
  get argument() {
    if (this.kind === 'default') return `text:${this.parameter.default}`;
    if (this.kind === 'hex') return `hex:${this.input.value}`;
    if (this.kind === 'file') return `@${this.file?.name ?? ''}`;
    return this.kind === 'null' ? '' : textArgument(this.text);
  }

  /** The text in the field, or what was put there, of which the field may have changed line ends. */
  get text() {
    return this.restored?.shown === this.input.value ? this.restored.text : this.input.value;
  }

  set argument(written) {
    const {kind, value} = readArgument(written, this.parameter.type);
    this.input.value = value;
    this.restored = {text: value, shown: this.input.value};
    this.kind = kind;
  }

  /** Whether the field could take an argument as it was put there; a file only the reader can. */
  holds(written) {
    return !written.startsWith('@');
  }

  get control() {
    if (this.kind === 'file') return this.chooser;
    return this.input.hidden ? this.kinds.querySelector('input:checked') : this.input;
  }

  get files() {
    return this.kind === 'file' && this.file ? [{name: this.file.name, data: this.file}] : [];
  }

  /** The argument for a link, which no file can be named in: its bytes instead, or null where there are too many. */
  async linked() {
    if (this.kind !== 'file') return this.argument.length > MOST_BYTES_IN_LINK ? null : this.argument;
    if (!this.file || this.file.size > MOST_BYTES_IN_LINK) return null;
    return `hex:${hexOf(new Uint8Array(await this.file.arrayBuffer()))}`;
  }
}

function fieldFor(parameter, index) {
  const hasBytes = parameter.type === 'string' || parameter.type === 'memoryblock';
  return hasBytes ? new BytesField(parameter, index) : new PlainField(parameter, index);
}

/** The fields that have to be given: those after the last one that isn't left at its default are dropped. */
function given(fields) {
  const count = fields.findLastIndex((field) => !field.isDefault) + 1;
  return fields.slice(0, count);
}
