"""The pages as they are written: sections, prose, declarations and examples."""

import re
from dataclasses import dataclass, field
from pathlib import Path


@dataclass
class Example:
    """A command, and what it prints."""

    command: str
    output: str


@dataclass
class Prose:
    text: str


@dataclass
class Declarations:
    lines: list


@dataclass
class Console:
    examples: list


@dataclass
class Section:
    """What stands below a heading of the second level; the first one has none."""

    heading: str
    blocks: list = field(default_factory=list)

    @property
    def declarations(self):
        return [line for block in self.blocks if isinstance(block, Declarations) for line in block.lines]

    @property
    def examples(self):
        return [example for block in self.blocks if isinstance(block, Console) for example in block.examples]

    @property
    def summary(self):
        """The first paragraph that is a sentence."""
        for block in self.blocks:
            if isinstance(block, Prose):
                for paragraph in re.split(r"\n\s*\n", block.text.strip()):
                    if re.match(r"[A-Z`\"]", paragraph):
                        return " ".join(paragraph.split())
        return ""

    @property
    def text(self):
        return " ".join(block.text for block in self.blocks if isinstance(block, Prose))


@dataclass
class Page:
    name: str
    title: str
    sections: list

    @property
    def methods(self):
        """The sections that describe a method."""
        return [section for section in self.sections if section.declarations]

    @property
    def examples(self):
        return [example for section in self.sections for example in section.examples]


def read_examples(lines, place):
    """The examples of a block: a command after a prompt, then what it prints."""
    examples = []
    for line in lines:
        if line.startswith("$ "):
            examples.append(Example(line[2:], ""))
        elif examples:
            examples[-1].output += line + "\n"
        else:
            raise RuntimeError(f"{place}: output without a command")
    return examples


def read_page(path):
    title, sections, prose = path.stem, [Section("")], []
    fence, kind, inside = None, "", []

    def flush():
        if "".join(prose).strip():
            sections[-1].blocks.append(Prose("\n".join(prose) + "\n"))
        prose.clear()

    for line in Path(path).read_text(encoding="utf-8").splitlines():
        opening = re.match(r"(`{3,}|~{3,})\s*(\S*)", line)
        if fence is not None:
            if opening and opening[1].startswith(fence) and not opening[2]:
                if kind == "console":
                    sections[-1].blocks.append(Console(read_examples(inside, f"{path}: {sections[-1].heading}")))
                elif kind == "xojo":
                    sections[-1].blocks.append(Declarations([each for each in inside if each.strip()]))
                else:
                    prose.extend([fence + kind, *inside, fence])
                fence = None
            else:
                inside.append(line)
        elif opening:
            fence, kind, inside = opening[1], opening[2], []
            if kind in ("console", "xojo"):
                flush()
        elif line.startswith("# "):
            title = line[2:].strip()
        elif line.startswith("## "):
            flush()
            sections.append(Section(line[3:].strip()))
        else:
            prose.append(line)
    flush()
    return Page(path.stem, title, sections)
