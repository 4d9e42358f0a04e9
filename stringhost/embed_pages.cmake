# cmake -DOUTPUT=FILE -DPAGES="A.md|B.md" -P embed_pages.cmake: writes the pages of the reference into a C++ source.
string(REPLACE "|" ";" pages "${PAGES}")
set(source "/// Generated from the pages of the reference.
#include \"stringhost/reference.h\"

#if defined(__clang__)
#pragma clang diagnostic ignored \"-Woverlength-strings\"
#endif

namespace stringhost {

const std::vector<std::string_view>& referencePages() {
  static const std::vector<std::string_view> kPages = {
")
foreach(page IN LISTS pages)
  file(READ "${page}" text)
  string(APPEND source "      R\"reference(${text})reference\",\n")
endforeach()
string(APPEND source "  };
  return kPages;
}

}  // namespace stringhost
")
file(WRITE "${OUTPUT}" "${source}")
