#!/usr/bin/env python3
"""Builds the reference site from the pages in docs/ and the compiled plugin: build.py MODULE_FOLDER SITE_FOLDER."""

import base64
import json
import re
import shutil
import sys
from pathlib import Path

from generator import layout, markdown, source

ROOT = Path(__file__).resolve().parent.parent
DOCS = ROOT / "docs"
ASSETS = Path(__file__).resolve().parent / "assets"

SCRIPTS = ("engine.js", "examples.js")
PLAYGROUND_SCRIPTS = ("engine.js", "fields.js", "result.js", "playground.js")


class Site:
    def __init__(self, folder):
        self.folder = folder
        self.groups = [source.read_page(path) for path in sorted((DOCS / "methods").glob("*.md")) if path.stem != "README"]
        index = (DOCS / "methods" / "README.md").read_text(encoding="utf-8")
        self.groups.sort(key=lambda group: index.find(group.name + ".md"))
        # What the sources' own index says, besides the table that the site has in another form.
        parts = re.split(r"^(?=#{2,3} )", index, flags=re.M)[1:]
        self.reading = "".join(part for part in parts if not re.search(r"^\|", part, re.M))
        self.others = [source.read_page(path) for path in sorted(DOCS.glob("*.md")) if path.stem != "README"]
        self.take_from_readme()
        self.names = {page.name for page in self.groups + self.others}
        others = [(page.name + ".html", page.title) for page in self.others]
        self.tabs = [("index.html", "Methods"), ("playground.html", "Playground"), *others]

    def take_from_readme(self):
        """The README's figures of what was tried get a page; its chart is one of those on the page on speed."""
        for section in source.read_page(ROOT / "README.md").sections:
            if section.heading == "What it promises":
                section.blocks = [block for block in section.blocks if isinstance(block, source.Prose)]
                self.others.append(source.Page("promises", section.heading, [source.Section("", section.blocks)]))

    def link(self, target):
        """The site's own form of a link between the sources."""
        if re.match(r"[a-z]+:", target) or target.startswith("#"):
            return target if not target.startswith("javascript:") else None
        path, _, fragment = target.partition("#")
        name = Path(path).name
        if name.endswith(".svg"):
            picture = re.sub(r"^(\.\./|docs/)*", "", path)
            return picture if (DOCS / picture).exists() else None
        if not name.endswith(".md"):
            return None
        if name == "README.md":
            heading = re.match(r"#+ (.*)", self.reading)
            return "index.html#" + markdown.anchor(heading[1]) if heading else "index.html"
        page = name.removesuffix(".md")
        return f"{page}.html{'#' if fragment else ''}{fragment}" if page in self.names else None

    def write(self, name, title, content, sidebar="", scripts=SCRIPTS):
        text = layout.page(title, content, current=name, tabs=self.tabs, sidebar=sidebar, scripts=scripts)
        (self.folder / name).write_text(text, encoding="utf-8")

    def section(self, section, anchors):
        parts = []
        if section.heading:
            name = anchors(section.heading)
            parts.append(
                f'<h2 id="{name}">{self.inline(section.heading)}'
                f'<a class="here" href="#{name}" aria-label="Link to this section">#</a></h2>'
            )
        for block in section.blocks:
            if isinstance(block, source.Prose):
                parts.append(markdown.render(block.text, self.link, anchors))
            elif isinstance(block, source.Declarations):
                lines = "".join(f"<span>{declaration(line)}\n</span>" for line in block.lines)
                parts.append(f'<pre class="declaration" tabindex="0" aria-label="Declaration"><code>{lines}</code></pre>')
            else:
                parts.append("".join(layout.example(each) for each in block.examples))
        return f"<section>{''.join(parts)}</section>"

    def inline(self, text):
        """Markdown inside a line, without links."""
        return re.sub("</?(a|p)[^>]*>", "", markdown.render(text, self.link)).strip()

    def page(self, page, sidebar):
        anchors = markdown.Anchors()
        body = "".join(self.section(section, anchors) for section in page.sections)
        examples = SCRIPTS if page.examples else ()
        self.write(page.name + ".html", page.title, f"<h1>{layout.escape(page.title)}</h1>{body}", sidebar, examples)

    def index(self):
        count = sum(len(section.declarations) for group in self.groups for section in group.methods)
        parts = [
            f"<h1>The {count} methods</h1>",
            '<p class="lead">String functions for the Xojo development environment and the applications built with it. '
            "Every example of this reference runs in the page, with the plugin itself: change it and see. "
            'In the <a href="playground.html">playground</a> any method can be called, with files too.</p>',
        ]
        for group in self.groups:
            rows = "".join(self.row(group, section, line) for section in group.methods for line in section.declarations)
            parts.append(
                f'<section class="group"><h2><a href="{group.name}.html">{layout.escape(group.title)}</a></h2>'
                f'<ul class="methods">{rows}</ul></section>'
            )
        if self.reading:
            parts.append(f"<section>{markdown.render(self.reading, self.link, markdown.Anchors())}</section>")
        self.write("index.html", "Methods", "".join(parts), layout.contents(self.groups), ())

    def row(self, group, section, line):
        parameters = ", ".join(re.findall(r"(\w+) as ", line.rpartition(")")[0]))
        return (
            f'<li><a href="{group.name}.html#{markdown.anchor(section.heading)}"><code>{layout.escape(section.heading)}</code>'
            f'<span class="parameters">({layout.escape(parameters)})</span></a>'
            f"<p>{self.inline(first_sentence(section.summary))}</p></li>"
        )

    def search(self):
        """What the search goes through: a record per section that has a heading."""
        records = []
        for page in self.groups + self.others:
            for section in page.sections:
                if not section.heading:
                    continue
                records.append(
                    {
                        "name": markdown.plain(self.inline(section.heading)),
                        "page": page.title,
                        "link": f"{page.name}.html#{markdown.anchor(section.heading)}",
                        "isMethod": bool(section.declarations),
                        "summary": markdown.plain(self.inline(first_sentence(section.summary))),
                        "text": " ".join(markdown.plain(markdown.render(section.text, self.link)).split()),
                    }
                )
        text = (ASSETS / "search.js").read_text(encoding="utf-8")
        records = json.dumps(records, ensure_ascii=False, separators=(",", ":"))
        (self.folder / "search.js").write_text(f"const SEARCH_RECORDS = {records};\n{text}", encoding="utf-8")

    def playground(self):
        content = (ASSETS / "playground.html").read_text(encoding="utf-8")
        self.write("playground.html", "Playground", content, "", PLAYGROUND_SCRIPTS)

    def build(self, module):
        for page in self.groups:
            self.page(page, layout.contents(self.groups, page.name))
        for page in self.others:
            self.page(page, on_this_page(page))
        self.index()
        self.playground()
        self.search()
        for picture in DOCS.rglob("*.svg"):
            copy = self.folder / picture.relative_to(DOCS)
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(picture, copy)
        for name in ("style.css", *sorted({*SCRIPTS, *PLAYGROUND_SCRIPTS})):
            shutil.copy(ASSETS / name, self.folder / name)
        self.machine(module)

    def machine(self, module):
        """The worker's program and the module it runs, as a script that works from disk: only scripts are read there."""
        parts = {
            "WORKER": (module / "stringhost_page.js").read_text(encoding="utf-8")
            + (ASSETS / "worker.js").read_text(encoding="utf-8"),
            "MODULE": base64.b64encode((module / "stringhost_page.wasm").read_bytes()).decode(),
        }
        lines = [f"const {name} = {json.dumps(text)};\n" for name, text in parts.items()]
        (self.folder / "machine.js").write_text("".join(lines), encoding="utf-8")

    @property
    def examples(self):
        return sum(len(page.examples) for page in self.groups + self.others)


def first_sentence(text):
    return re.match(r".*?[.!?](?=\s|$)|.*", text)[0]


def declaration(line):
    escaped = layout.escape(line)
    escaped = re.sub(r"\bas (\w+)", r'<span class="word">as</span> <span class="type">\1</span>', escaped)
    return re.sub(r"^(\w+)", r'<span class="name">\1</span>', escaped)


def on_this_page(page):
    items = "".join(
        f'<li><a href="#{markdown.anchor(section.heading)}">{layout.escape(section.heading)}</a></li>'
        for section in page.sections
        if section.heading
    )
    if not items:
        return ""
    return f'<nav aria-label="On this page"><details open><summary>On this page</summary><ul>{items}</ul></details></nav>'


def main():
    module, folder = Path(sys.argv[1]), Path(sys.argv[2])
    fresh = folder.with_name(folder.name + ".new")
    shutil.rmtree(fresh, ignore_errors=True)
    fresh.mkdir(parents=True)
    site = Site(fresh)
    site.build(module)
    shutil.rmtree(folder, ignore_errors=True)
    fresh.rename(folder)
    size = sum(path.stat().st_size for path in folder.rglob("*") if path.is_file())
    print(f"{len(site.groups) + len(site.others) + 2} pages, {site.examples} live examples, {size / 1e6:.1f} MB in {folder}")


if __name__ == "__main__":
    main()
