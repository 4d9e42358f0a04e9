// Search over the sections of all pages; SEARCH_RECORDS stands above.

const MOST_FOUND = 12;

/** Whether a name has these letters in this order, as it has where some were left out. */
function hasLetters(name, letters) {
  let at = -1;
  return [...letters].every((letter) => (at = name.indexOf(letter, at + 1)) >= 0);
}

/** How well a record answers all the words: the higher the better, 0 not at all. */
function relevance(record, words) {
  const name = record.name.toLowerCase();
  let sum = 0;
  for (const word of words) {
    let points = 0;
    if (name === word || name === `${word}zqv`) points = 100;
    else if (name.startsWith(word)) points = 60;
    else if (name.includes(word)) points = 40;
    else if (record.summary.toLowerCase().includes(word)) points = 20;
    else if (record.page.toLowerCase().includes(word)) points = 8;
    else if (record.text.toLowerCase().includes(word)) points = 5;
    else if (word.length > 4 && hasLetters(name, word)) points = 3;
    else if (word.length > 4 && record.text.toLowerCase().replaceAll(' ', '').includes(word)) points = 1;
    if (points === 0) return 0;
    sum += points;
  }
  return sum + (record.isMethod ? 3 : 0);
}

function search(query) {
  const words = query.toLowerCase().split(/\s+/).filter((word) => word !== '');
  if (words.length === 0) return [];
  return SEARCH_RECORDS.map((record) => ({record, points: relevance(record, words)}))
    .filter(({points}) => points > 0)
    .sort((a, b) => b.points - a.points)
    .slice(0, MOST_FOUND)
    .map(({record}) => record);
}

{
  const field = document.getElementById('search');
  const list = document.getElementById('found');
  let chosen = -1;

  function choose(index) {
    const options = [...list.querySelectorAll('[role=option]')];
    chosen = options.length === 0 ? -1 : (index + options.length) % options.length;
    options.forEach((option, at) => option.setAttribute('aria-selected', String(at === chosen)));
    if (chosen < 0) field.removeAttribute('aria-activedescendant');
    else {
      field.setAttribute('aria-activedescendant', options[chosen].id);
      options[chosen].scrollIntoView({block: 'nearest'});
    }
  }

  function entry(record, index) {
    const option = document.createElement('li');
    option.id = `found-${index}`;
    option.setAttribute('role', 'option');
    const link = document.createElement('a');
    link.href = record.link;
    link.tabIndex = -1;
    const name = document.createElement('strong');
    name.textContent = record.name;
    const about = document.createElement('span');
    about.textContent = record.summary || record.page;
    link.append(name, about);
    option.append(link);
    return option;
  }

  function show() {
    const found = search(field.value);
    list.replaceChildren(...found.map(entry));
    if (found.length === 0) {
      const nothing = document.createElement('li');
      nothing.className = 'nothing';
      nothing.textContent = 'Nothing found';
      list.append(nothing);
    }
    const isOpen = field.value.trim() !== '';
    list.hidden = !isOpen;
    field.setAttribute('aria-expanded', String(isOpen));
    choose(isOpen && found.length > 0 ? 0 : -1);
  }

  function close() {
    list.hidden = true;
    field.setAttribute('aria-expanded', 'false');
  }

  function go() {
    const link = list.querySelector('[aria-selected=true] a');
    if (!link) return;
    close();
    location.href = link.href;
  }

  field.addEventListener('input', show);
  field.addEventListener('focus', () => field.value.trim() !== '' && show());
  field.addEventListener('keydown', (event) => {
    if (event.key === 'ArrowDown' || event.key === 'ArrowUp') {
      event.preventDefault();
      choose(chosen + (event.key === 'ArrowDown' ? 1 : -1));
    } else if (event.key === 'Escape') {
      field.value = '';
      close();
    }
  });
  field.form.addEventListener('submit', (event) => {
    event.preventDefault();
    go();
  });
  field.addEventListener('blur', () => setTimeout(close, 150));
  list.addEventListener('mousedown', (event) => event.preventDefault());
  list.addEventListener('click', close);
  document.addEventListener('keydown', (event) => {
    const isTyping = event.target.matches('input, textarea, select, [contenteditable]');
    if (event.key !== '/' || isTyping || event.ctrlKey || event.metaKey || event.altKey) return;
    event.preventDefault();
    field.focus();
    field.select();
  });

  // On narrow screens the list of methods begins folded, and the bar of pages at this one.
  if (matchMedia('(max-width: 60rem)').matches) {
    for (const details of document.querySelectorAll('.sidebar details')) details.open = false;
    const bar = document.querySelector('.top nav');
    const current = bar.querySelector('[aria-current]');
    if (current) bar.scrollLeft += current.getBoundingClientRect().left - bar.getBoundingClientRect().left;
  }
}
