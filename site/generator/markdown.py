"""Markdown to HTML, through md4c."""

import ctypes
import html
import re

# What GitHub shows the pages with, but no HTML: text stays text.
TABLES, STRIKETHROUGH, PERMISSIVE_LINKS, NO_HTML = 0x0100, 0x0200, 0x0004, 0x0060
FLAGS = TABLES | STRIKETHROUGH | PERMISSIVE_LINKS | NO_HTML

_Output = ctypes.CFUNCTYPE(None, ctypes.POINTER(ctypes.c_char), ctypes.c_uint, ctypes.c_void_p)
_md_html = ctypes.CDLL("libmd4c-html.so.0").md_html
_md_html.argtypes = [ctypes.c_char_p, ctypes.c_uint, _Output, ctypes.c_void_p, ctypes.c_uint, ctypes.c_uint]


def anchor(heading):
    """The name a heading is linked by, as on GitHub."""
    return re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


class Anchors:
    """The names of a page's headings; the second of a name gets a number, as on GitHub."""

    def __init__(self):
        self.seen = {}

    def __call__(self, heading):
        name = anchor(heading)
        count = self.seen.get(name, 0)
        self.seen[name] = count + 1
        return f"{name}-{count}" if count else name


def plain(rendered):
    """The text of some HTML."""
    return html.unescape(re.sub(r"<[^>]*>", "", rendered))


def render(text, link, anchors=anchor):
    """HTML of some Markdown. `link` turns the target of each link and image into one of the site, or None."""
    parts = []
    source = text.encode()
    status = _md_html(source, len(source), _Output(lambda data, size, _: parts.append(data[:size])), None, FLAGS, 0)
    if status != 0:
        raise RuntimeError("md4c could not render the page")
    return _finished(b"".join(parts).decode(), link, anchors)


def _finished(rendered, link, anchors):
    def heading(match):
        level, inner = match.groups()
        return f'<h{level} id="{anchors(plain(inner))}">{inner}</h{level}>'

    def reference(match):
        target = link(html.unescape(match["target"]))
        if target is None:
            return match["inner"]
        return f'<a href="{html.escape(target)}"{match["rest"]}>{match["inner"]}</a>'

    def image(match):
        target = link(html.unescape(match["target"]))
        if target is None:
            raise RuntimeError("an image that is not in the site: " + match["target"])
        return f'<img src="{html.escape(target)}"{match["rest"]}>'

    rendered = re.sub(r"<h([1-6])>(.*?)</h\1>", heading, rendered, flags=re.S)
    rendered = re.sub(r'<a href="(?P<target>[^"]*)"(?P<rest>[^>]*)>(?P<inner>.*?)</a>', reference, rendered, flags=re.S)
    rendered = re.sub(r'<img src="(?P<target>[^"]*)"(?P<rest>[^>]*)>', image, rendered)
    # Wide tables scroll by themselves instead of making the page wide.
    return rendered.replace("<table>", '<div class="table" tabindex="0" role="region" aria-label="Table"><table>').replace(
        "</table>", "</table></div>"
    )
