# The reference as a site, where every example runs in the page.

site_packages=(emscripten python3 libmd4c-html0)
site_check_packages=(chromium chromium-driver python3-selenium)

slow_checks+=(site)

# Debian's own, which sees the modules that Debian installs.
site_python() { PYTHONDONTWRITEBYTECODE=1 "$(command -v /usr/bin/python3 || command -v python3)" "$@"; }

# site: compiles plugin and stand-in host to WebAssembly, and puts the pages around them into build/site.
site() {
  install "${common[@]}" "${site_packages[@]}"
  configure wasm
  step 'build wasm' cmake --build --preset wasm
  step 'site' site_python site/build.py build/wasm/site build/site
  say "$(tail -n 1 "$logs/site.log"); open build/site/index.html"
}

# check_site: every example, link and form of the site, in a real browser.
check_site() {
  site
  install "${site_check_packages[@]}"
  step 'site in chromium' site_python -m unittest discover --start-directory tests/site --pattern '*_test.py'
  grep -E '^[0-9]+ |^10 MB|^Ran ' "$logs/site_in_chromium.log"
}
