"""The frame of every page, and its recurring pieces."""

import html
import re
import shlex
from urllib.parse import urlencode

# Nothing is fetched but the site's own files, and nothing can be sent anywhere.
POLICY = "; ".join(
    [
        "default-src 'none'",
        "script-src 'self' file: blob: 'wasm-unsafe-eval'",
        "worker-src blob:",
        "style-src 'self' file:",
        "img-src 'self' file: data:",
        "form-action 'none'",
        "base-uri 'none'",
    ]
)

ICON = (
    "data:image/svg+xml,%3Csvg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 32 32'%3E%3Crect width='32' height='32'"
    " rx='7' fill='%23175ddc'/%3E%3Cpath d='M8 11h5v5q0 5-5 6v-3q2-.7 2-3H8zm10 0h5v5q0 5-5 6v-3q2-.7 2-3h-2z'"
    " fill='white'/%3E%3C/svg%3E"
)


def escape(text):
    return html.escape(text, quote=True)


def page(title, content, *, current, tabs, sidebar, scripts=()):
    """A whole page. `tabs` are (file, name) of the main navigation, `sidebar` the HTML beside the content."""
    links = "".join(
        f'<li><a href="{file}"{" aria-current=page" if file == current else ""}>{escape(name)}</a></li>'
        for file, name in tabs
    )
    files = "".join(f'<script src="{file}" defer></script>\n' for file in ("search.js", *scripts))
    side = f'<aside class="sidebar">{sidebar}</aside>' if sidebar else ""
    kind = " alone" if not sidebar else " index" if current == "index.html" else ""
    return f"""<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="{POLICY}">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<meta name="referrer" content="no-referrer">
<title>{escape(title)} · StringPlugin</title>
<link rel="icon" href="{ICON}">
<link rel="stylesheet" href="style.css">
{files}</head>
<body>
<a class="skip" href="#main">Skip to the content</a>
<header class="top">
<a class="brand" href="index.html">StringPlugin</a>
<nav aria-label="Main"><ul>{links}</ul></nav>
<form class="search" role="search">
<input id="search" type="search" placeholder="Search methods" aria-label="Search methods" aria-keyshortcuts="/"
 autocomplete="off" spellcheck="false" role="combobox" aria-expanded="false" aria-controls="found">
<kbd aria-hidden="true">/</kbd>
<ul id="found" role="listbox" aria-label="Methods found" hidden></ul>
</form>
</header>
<div class="frame{kind}">
{side}
<main id="main" tabindex="-1">
{content}
</main>
</div>
<footer><p>Everything runs in this page: the plugin and its host, compiled to WebAssembly. Nothing you type leaves it.</p>
</footer>
</body>
</html>
"""


def breakable(name):
    """A name that may be broken before its capitals."""
    return re.sub(r"(?<=[a-z])(?=[A-Z])", "<wbr>", escape(name))


def contents(pages, current=None):
    """The methods of all pages, as a folding list each."""
    parts = []
    for each in pages:
        items = "".join(
            f'<li><a href="{each.name}.html#{section.heading.lower()}">{breakable(section.heading.removesuffix("ZQV"))}</a></li>'
            for section in each.methods
        )
        is_open = " open" if current == each.name else ""
        parts.append(f"<details{is_open}><summary>{escape(each.title)}</summary><ul>{items}</ul></details>")
    return f'<nav aria-label="Methods">{"".join(parts)}</nav>'


def playground_link(command):
    """The fragment that fills in the playground as an example's command would; None where it cannot."""
    words = shlex.split(command)[1:]
    if not words or words[0] not in ("call", "explain"):
        return None
    names = {"--encoding": "encoding", "--host-version": "host", "--without": "without"}
    fields, arguments = [], []
    words = words[1:]
    is_option = True
    while words:
        word = words.pop(0)
        if is_option and word == "--":
            is_option = False
        elif is_option and word in names and words:
            fields.append((names[word], words.pop(0)))
        elif is_option and word == "--output" and words:
            words.pop(0)
        elif is_option and word.startswith("--") and word != "--json":
            return None
        elif not (is_option and word == "--json"):
            arguments.append(word)
    if not arguments or any(each == "-" or each.startswith("@") for each in arguments[1:]):
        return None
    fields += [("method", arguments[0])] + [("a", each) for each in arguments[1:]]
    return "playground.html#" + urlencode(fields)


def example(each):
    """An example as it is read; a script makes it live."""
    link = playground_link(each.command)
    anchor = f' data-playground="{escape(link)}"' if link else ""
    return (
        f'<div class="example"{anchor}><div class="command"><span class="prompt" aria-hidden="true">$</span>'
        f"<code>{escape(each.command)}</code></div>"
        f'<pre class="output" tabindex="0" aria-label="What it prints"><samp>{escape(each.output)}</samp></pre></div>'
    )
