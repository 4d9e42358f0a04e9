"""The built site in a real browser: what a reader sees and does there."""

import http.server
import re
import tempfile
import threading
import unittest
from functools import partial
from pathlib import Path
from urllib.parse import quote

from browser import NARROW, SITE, WIDE, Browser

DOCS = SITE.parents[1] / "docs"
PAGES = sorted(path.name for path in SITE.glob("*.html"))
TEN_MB = 10_000_000
HOSTILE = "<img src=x onerror=\"document.title='taken'\"><script>document.title='taken'</script>&lt;\u202e"

# Runs every example of a page, and gives for each the command, what the page said and what it says then.
RUN_ALL = """
const rows = [];
for (const example of document.querySelectorAll('.example')) {
  const note = example.querySelector('.note');
  const row = {command: example.querySelector('textarea').value, documented: example.querySelector('samp').textContent};
  example.querySelector('samp').textContent = 'not run';
  example.querySelector('button.run').click();
  while (note.textContent === '' || note.textContent === 'running …') await new Promise((r) => setTimeout(r, 5));
  rows.push({...row, printed: example.querySelector('samp').textContent});
}
return rows;
"""

# Whether every part is inside the width of the page, or scrolls by itself.
OVERHANGING = """
const wide = document.documentElement.clientWidth;
const scrolls = (e) => e && (/auto|scroll|hidden/.test(getComputedStyle(e).overflowX) || scrolls(e.parentElement));
return [...document.querySelectorAll('main *, header *')].filter((e) => {
  const box = e.getBoundingClientRect();
  return box.width > 0 && box.right > wide + 1 && !scrolls(e.parentElement) && !e.closest('.skip');
}).map((e) => e.outerHTML.slice(0, 80));
"""


class SiteTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = Browser()

    @classmethod
    def tearDownClass(cls):
        cls.browser.close()

    def setUp(self):
        self.browser.resize(WIDE)

    def tearDown(self):
        self.assertEqual(self.browser.complaints(), [], "in the console")
        inside = re.compile(r"(file://" + re.escape(str(SITE)) + r"/|blob:|data:|about:blank)")
        self.assertEqual([each for each in self.browser.requests() if not inside.match(each)], [], "left the page")

    def playground(self, *fields):
        """Opens the playground at a call: pairs of a name and a value of its link."""
        self.browser.open("playground.html#" + "&".join(f"{name}={quote(value, safe='')}" for name, value in fields))
        self.browser.wait("document.body.classList.contains('ready')")

    def submit(self, seconds=60):
        self.browser.run("document.getElementById('result').hidden = true; document.querySelector('#call button.run').click();")
        self.browser.wait("!document.querySelector('#progress.busy')", seconds)

    def problems(self):
        return self.browser.run("return [...document.querySelectorAll('.problem')].map((e) => e.textContent).filter(Boolean)")

    def fact(self, term):
        script = "return [...document.querySelectorAll('dt')].find((e) => e.textContent === arguments[0])?.nextSibling.textContent"
        return self.browser.run(script, term)

    # The reference.

    def test_every_example_prints_what_its_page_says(self):
        total = 0
        for page in PAGES:
            self.browser.open(page)
            for row in self.browser.run(RUN_ALL):
                total += 1
                with self.subTest(page=page, command=row["command"]):
                    self.assertEqual(row["printed"], row["documented"])
        sources = [path.read_text() for path in [*DOCS.glob("*.md"), *DOCS.glob("methods/*.md")]]
        blocks = [block for text in sources for block in re.findall(r"^```console\n(.*?)^```", text, re.M | re.S)]
        self.assertEqual(total, sum(len(re.findall(r"^\$ ", block, re.M)) for block in blocks))
        print(f"\n{total} examples run", flush=True)

    def test_an_example_can_be_changed_and_put_back(self):
        self.browser.open("markup.html")
        example = "document.querySelector('.example')"
        before = self.browser.run(f"return {example}.querySelector('samp').textContent")
        self.browser.run(
            f"const field = {example}.querySelector('textarea');"
            "field.value = `stringhost call EncodingToHTMLZQV '<i>'`; field.dispatchEvent(new Event('input'));"
        )
        self.browser.find(".example textarea").send_keys("\n")
        self.browser.wait(f"{example}.querySelector('samp').textContent === '&lt;i&gt;\\n'")
        for command, words in (("stringhost 'x", "a quotation is not closed"), ("ls", "not a command line of stringhost")):
            self.browser.run(f"{example}.querySelector('textarea').value = arguments[0];", command)
            self.browser.find(".example button.run").click()
            self.browser.wait(f"{example}.querySelector('samp').textContent.startsWith('{words}')")
        self.browser.run(f"[...{example}.querySelectorAll('button')].find((b) => b.textContent === 'Reset').click()")
        self.assertEqual(self.browser.run(f"return {example}.querySelector('samp').textContent"), before)

    def test_links_lead_somewhere(self):
        targets = {}
        for page in PAGES:
            self.browser.open(page)
            for link in self.browser.run("return [...document.querySelectorAll('a[href]')].map((a) => a.getAttribute('href'))"):
                file, _, fragment = link.partition("#")
                if not re.match(r"[a-z]+:", link) and not fragment.startswith("method="):
                    targets.setdefault(file or page, set()).add(fragment)
        for file, fragments in targets.items():
            if file.startswith("playground.html"):
                continue
            with self.subTest(file=file):
                ids = re.findall(r' id="([^"]*)"', (SITE / file).read_text())
                self.assertEqual(len(ids), len(set(ids)), "an anchor twice")
                self.assertLessEqual(fragments - {""}, set(ids))

    def test_the_index_has_all_methods_and_the_charts_are_there(self):
        self.browser.open("index.html")
        self.assertEqual(self.browser.run("return document.querySelectorAll('.methods li').length"), 50)
        self.browser.open("speed.html")
        widths = self.browser.run("return [...document.images].map((image) => image.naturalWidth)")
        self.assertTrue(widths and all(widths), widths)

    def test_search_by_keyboard(self):
        self.browser.open("index.html")
        self.browser.find("body").send_keys("/")
        self.assertEqual(self.browser.run("return document.activeElement.id"), "search")
        field = self.browser.find("#search")
        for query, first in (("levensh", "LevenshteinDistanceZQV"), ("byte-order mark kind", "GetUnicodeMarkersZQV"),
                             ("levenstein", "LevenshteinDistanceZQV"), ("decodinghtml", "DecodingFromHTMLZQV")):
            field.clear()
            field.send_keys(query)
            self.assertEqual(self.browser.text("#found [aria-selected=true] strong"), first)
        field.clear()
        field.send_keys("<b>no such thing")
        self.assertEqual(self.browser.text("#found"), "Nothing found")
        field.clear()
        field.send_keys("EncodingToHTML\n")
        self.browser.wait("location.href.endsWith('markup.html#encodingtohtmlzqv')")

    def test_keyboard_reaches_the_content_first(self):
        self.browser.open("markup.html")
        self.browser.find("body").send_keys("\ue004")
        self.assertEqual(self.browser.run("return document.activeElement.className"), "skip")
        self.browser.driver.switch_to.active_element.send_keys("\n")
        self.assertEqual(self.browser.run("return location.hash"), "#main")

    def test_nothing_hangs_over_the_edge(self):
        for size in (WIDE, NARROW):
            self.browser.resize(size)
            for page in PAGES:
                self.browser.open(page)
                with self.subTest(page=page, size=size):
                    self.assertEqual(self.browser.run(OVERHANGING), [])
                    self.assertTrue(self.browser.run("return document.documentElement.scrollWidth <= innerWidth"))

    # The playground.

    def test_a_link_restores_a_call_exactly(self):
        calls = [
            [("method", "EncodingToHTMLZQV"), ("a", HOSTILE)],
            [("method", "NativeStringZQV"), ("a", "hex:8E00FF"), ("encoding", "macroman"), ("host", "2011")],
            [("method", "HexstringZQV"), ("a", "é\r\n\t"), ("a", "2"), ("a", "8"), *[("a", "text:")] * 4],
            [("method", "_yDecodeMemoryZQV"), ("a", ""), ("without", "newMemoryBlock")],
        ]
        state = (
            "const r = document.querySelector('#result').cloneNode(true); r.querySelector('dl').lastChild.remove();"
            "return [document.getElementById('permalink').getAttribute('href'), r.textContent,"
            " [...document.querySelectorAll('#call select, #call textarea, #call input:not([type=file], [type=radio])')]"
            ".map((e) => e.value), [...document.querySelectorAll('#call :checked')].map((e) => e.value)]"
        )
        for call in calls:
            with self.subTest(call=call):
                self.playground(*call)
                first = self.browser.run(state)
                self.browser.open("playground.html" + first[0])
                self.browser.wait("document.body.classList.contains('ready')")
                self.assertEqual(self.browser.run(state), first)
                self.assertEqual(self.browser.run("return document.title"), "Playground · StringPlugin")

    def test_every_playground_link_of_the_examples_gives_the_same_call(self):
        links = {}
        for page in PAGES:
            self.browser.open(page)
            script = "return [...document.querySelectorAll('.example a.plain')].map((a) => a.getAttribute('href'))"
            links.update(dict.fromkeys(self.browser.run(script)))
        self.assertGreater(len(links), 150)
        self.playground(("method", "StrZQV"), ("a", "1"))
        for link in links:
            with self.subTest(link=link):
                given = link.partition("#")[2]
                restored = self.browser.run(
                    "restore(arguments[0]); const {words} = namedFiles();"
                    "const said = new URLSearchParams(arguments[0]);"
                    "const lines = [[...said.getAll('a')], words].map((a) =>"
                    " quoted(['stringhost', 'call', '--json', ...options(), '--', said.get('method'), ...a]));"
                    "return Promise.all(lines.map((line) => engine.runLine(line).then(({out, err}) => out + err)))",
                    given,
                )
                self.assertEqual(restored[0], restored[1])

    def test_a_result_in_every_form(self):
        self.playground(("method", "EncodingToXMLZQV"), ("a", "é\n😀<"), ("host", "2023.1"))
        self.assertEqual(self.browser.text("#as-text pre"), "é\n😀&lt;")
        self.assertEqual(self.browser.text("#as-hex-dump pre"), "00000000  C3 A9 0A F0 9F 98 80 26  6C 74 3B                 .......&lt;")
        self.assertEqual(self.browser.text("#as-escaped-source pre"), '"\\u00E9\\n\\U0001F600&lt;"')
        self.assertEqual(self.browser.text("#as-xojo-source pre"), '"é" + &u0A + "😀&lt;"')
        services = self.browser.run("return [...document.querySelectorAll('#services code')].map((e) => e.textContent)")
        self.assertEqual(services[:3], ["REALGetStringEncoding", "REALLockString", "PluginGetStringData"])
        self.playground(("method", "EncodingToXMLZQV"), ("a", "plain"), ("encoding", "utf-16"))
        self.assertEqual(self.fact("Handle"), "argument 1 itself came back")
        self.assertEqual(self.fact("Encoding"), "utf-16")
        self.playground(("method", "DecodingFromHexZQV"), ("a", "FF00"))
        self.assertEqual(self.browser.text("#as-text pre"), None)
        self.assertEqual(self.browser.text("#as-xojo-source pre"), 'DecodeHex("FF00")')
        self.playground(("method", "_yDecodeMemoryZQV"), ("a", "hex:728F969699"), ("without", "newMemoryBlock"))
        self.assertRegex(self.fact("Exception"), r"^OutOfMemoryException: ")

    def test_hostile_input_stays_text(self):
        self.playground(("method", "DecodingFromHTMLZQV"), ("a", HOSTILE))
        self.assertEqual(self.browser.text("#as-text pre"), HOSTILE.replace("&lt;", "<"))
        self.assertEqual(self.browser.run("return document.querySelectorAll('#result img, #result script').length"), 0)
        self.assertEqual(self.browser.run("return document.title"), "Playground · StringPlugin")

    def test_nothing_can_be_sent(self):
        refused = (
            "addEventListener('securitypolicyviolation', ({effectiveDirective}) => {0}(effectiveDirective));"
            "fetch('https://example.invalid/').catch(() => 0);"
        )
        self.browser.open("playground.html")
        self.assertEqual(self.browser.run(f"return new Promise((r) => {{ {refused.replace('{0}', 'r')} }})"), "connect-src")
        worker = "return new Promise((r) => new Worker(URL.createObjectURL(new Blob([arguments[0]]))).onmessage = (e) => r(e.data))"
        self.assertEqual(self.browser.run(worker, refused.replace("{0}", "postMessage")), "connect-src")
        self.browser.complaints(), self.browser.requests()  # both are told of what was refused

    def test_bad_input_gives_the_words_of_the_command_line(self):
        rows = [
            ([("method", "EncodingToHexZQV"), ("a", "hex:C3A")], "hex:C3A: two hex digits make a byte, one is missing"),
            ([("method", "StrZQV"), ("a", "1e999")], "'1e999' is out of range for d, a double"),
            ([("method", "StrZQV"), ("a", "1"), ("host", "-1")], "--host-version: '-1' is no version of the host (0 to 1000000)"),
            ([("method", "StrZQV"), ("a", "1"), ("without", "REALLockStrin")],
             "no such service: REALLockStrin\ndid you mean REALLockString?"),
        ]
        for call, words in rows:
            with self.subTest(call=call):
                self.playground(*call)
                self.assertEqual([re.sub(r"\nstringhost \w+ --help says more$", "", each) for each in self.problems()], [words])
                focused = self.browser.run("return document.activeElement.parentElement.querySelector('.problem')?.textContent")
                self.assertTrue(focused.startswith(words), "not beside its field")
        self.playground(("method", "StrZZ"), ("a", "1"))
        self.assertIn("no such method: StrZZ", "".join(self.problems()))
        self.assertEqual(self.browser.run("return location.hash"), "")

    def test_a_form_changed_during_a_call(self):
        click = "document.querySelector('#call button.run').click();"
        self.playground(("method", "RandomBytesStringZQV"), ("a", "1"))
        self.browser.run(f"fields[0].argument = '2000000'; {click} fields[0].argument = '5';")
        self.browser.wait("!document.querySelector('#progress.busy')")
        self.assertEqual(self.fact("Size"), "2,000,000 bytes")
        self.assertEqual(self.browser.run("return location.hash"), "#method=RandomBytesStringZQV&a=2000000")
        for argument in ("2000000", "x"):
            self.browser.run(
                f"fields[0].argument = '{argument}'; {click}"
                "methodChoice.selectedIndex = 0; methodChoice.dispatchEvent(new Event('change'));"
                "await engine.runWords(['list']);"
            )
            state = "return [resultView.hidden, progress.textContent, cancelButton.hidden, location.hash]"
            self.assertEqual(self.browser.run(state), [True, "", True, ""])
            self.assertEqual(self.problems(), [])
            self.playground(("method", "RandomBytesStringZQV"), ("a", "1"))
        self.playground(("method", "EncodingToHexZQV"), ("a", "x"))
        self.browser.run("fields[0].argument = 'x'.repeat(70000)")
        self.submit()
        self.assertEqual(self.browser.run("return location.hash"), "", "too large for a link")
        self.playground(("method", "EncodingToHexZQV"), ("a", "x"), ("without", "REALLockString"))
        self.assertEqual((self.problems(), self.browser.text(".services > .note:last-child")[:24]), ([], "references don't balance"))

    def choose(self, path):
        self.playground(("method", "EncodingToHexZQV"), ("a", "x"))
        self.browser.run("document.querySelector('#arguments input[value=file]').click()")
        self.browser.find("#arguments input[type=file]").send_keys(str(path))

    def test_files(self):
        with tempfile.TemporaryDirectory() as folder:
            small, large, huge = (Path(folder) / name for name in ("small 1.bin", "large.bin", "huge.bin"))
            small.write_bytes(b"\x00\xffA")
            self.choose(small)
            self.submit()
            self.assertEqual(self.browser.text("#as-text pre"), "00FF41")
            self.browser.open("playground.html" + self.browser.run("return location.hash"))
            self.browser.wait("document.querySelector('#as-text pre')?.textContent === '00FF41'")

            large.write_bytes(bytes(range(250)) * (TEN_MB // 250))
            self.choose(large)
            self.browser.run(
                "window.told = new Set();"
                "new MutationObserver(() => told.add(progress.textContent)).observe(progress, {childList: true});"
            )
            self.submit(300)
            self.assertEqual(self.fact("Size"), f"{2 * TEN_MB:,} bytes")
            told = self.browser.run("return [...told]")
            self.assertGreater(sum("so far" in each for each in told), 2, "the page stood still")

            with huge.open("wb") as file:
                file.truncate(2**31)
            self.choose(huge)
            self.submit()
            self.assertEqual(self.problems(), ["huge.bin: more than 2147483647 bytes, which is all a string can hold"])

    def test_a_long_call_can_be_given_up(self):
        with tempfile.NamedTemporaryFile() as file:
            file.write(b"<" * 4 * TEN_MB)
            file.flush()
            self.choose(file.name)
            self.browser.run("document.querySelector('#call button.run').click()")
            self.browser.wait("/([5-9].. ms|s) so far/.test(progress.textContent)")
            self.browser.run("document.getElementById('cancel').click()")
        self.browser.wait("progress.textContent === 'cancelled'")
        self.browser.run("fields[0].argument = 'again'")
        self.submit()
        self.assertEqual(self.browser.text("#as-text pre"), "616761696E")


class ServedTest(unittest.TestCase):
    """The same site from a web server."""

    def test_an_example_runs(self):
        class Quiet(http.server.SimpleHTTPRequestHandler):
            def log_message(self, *_):
                pass

        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), partial(Quiet, directory=SITE))
        threading.Thread(target=server.serve_forever, daemon=True).start()
        base = f"http://127.0.0.1:{server.server_address[1]}"
        browser = Browser(base)
        try:
            browser.open("encodings.html")
            for row in browser.run(RUN_ALL):
                self.assertEqual(row["printed"], row["documented"])
            self.assertEqual(browser.complaints(), [])
            self.assertEqual([each for each in browser.requests() if not each.startswith((base, "blob:", "data:", "about:"))], [])
        finally:
            browser.close()
            server.shutdown()
            server.server_close()


if __name__ == "__main__":
    unittest.main()
