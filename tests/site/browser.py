"""A headless Chromium that shows the built site, and keeps account of what the pages asked for and complained about."""

import json
import os
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.support.ui import WebDriverWait

SITE = Path(__file__).resolve().parents[2] / "build" / "site"
SECONDS = 60

WIDE, NARROW = (1280, 900), (390, 844)


class Browser:
    def __init__(self, base=SITE.as_uri()):
        options = Options()
        options.binary_location = "/usr/bin/chromium"
        for argument in ("--headless=new", "--disable-gpu", "--disable-dev-shm-usage", "--hide-scrollbars"):
            options.add_argument(argument)
        if os.geteuid() == 0:
            options.add_argument("--no-sandbox")
        options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
        self.base = base
        self.driver = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
        self.driver.set_script_timeout(300)
        self.resize(WIDE)

    def close(self):
        self.driver.quit()

    def resize(self, size):
        width, height = size
        self.driver.execute_cdp_cmd(
            "Emulation.setDeviceMetricsOverride",
            {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": size == NARROW},
        )

    def open(self, page):
        self.driver.get("about:blank")  # so that another fragment is another visit
        self.driver.get(f"{self.base}/{page}")

    def run(self, script, *arguments):
        """Runs a script that may await, and gives what it returns."""
        wrapped = (
            "const done = arguments[arguments.length - 1];"
            "(async function () {" + script + "}).apply(null, arguments)"
            ".then((value) => done({value}), (error) => done({error: String(error)}));"
        )
        reply = self.driver.execute_async_script(wrapped, *arguments)
        if "error" in reply:
            raise AssertionError(reply["error"])
        return reply.get("value")

    def wait(self, condition, seconds=SECONDS):
        """Waits until a JavaScript expression is true."""
        return WebDriverWait(self.driver, seconds).until(lambda driver: driver.execute_script("return " + condition))

    def find(self, selector):
        return self.driver.find_element("css selector", selector)

    def text(self, selector):
        return self.driver.execute_script("return document.querySelector(arguments[0])?.textContent", selector)

    def complaints(self):
        """What stands in the console since the last question."""
        return [entry["message"] for entry in self.driver.get_log("browser")]

    def requests(self):
        """All addresses asked for since the last question."""
        addresses = []
        for entry in self.driver.get_log("performance"):
            message = json.loads(entry["message"])["message"]
            if message["method"] == "Network.requestWillBeSent":
                addresses.append(message["params"]["request"]["url"])
        return addresses
