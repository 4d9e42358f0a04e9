#include "standin/declaration.h"

#include <doctest/doctest.h>

namespace standin {
namespace {

/// The declaration as it was understood, written out again in one way.
std::string understood(const char* text) {
  const auto declaration = parseDeclaration(text);
  if (!declaration) return "nothing";
  std::string out = declaration->name + "(";
  for (const Parameter& parameter : declaration->parameters) {
    out += parameter.name + ":" + nameOf(parameter.type);
    if (parameter.defaultValue) out += "=" + *parameter.defaultValue;
    out += ";";
  }
  return out + "):" + nameOf(declaration->result);
}

TEST_CASE("declarations") {
  CHECK(understood("_f(s as string) as string") == "_f(s:string;):string");
  CHECK(understood("f() as boolean") == "f():boolean");
  CHECK(understood("f(a as string,b as double) as integer") == "f(a:string;b:double;):integer");
  CHECK(understood("f(n as integer = -72, m as MemoryBlock) As MemoryBlock") ==
        "f(n:integer=-72;m:memoryblock;):memoryblock");
  CHECK(understood("f(x as double=1.5, b as boolean=false, s as string = \"a b\") as string") ==
        "f(x:double=1.5;b:boolean=false;s:string=a b;):string");
  for (const char* text : {"", "f", "f()", "f(s) as string", "f(s as text) as string", "f(s as string as string",
                           "f(s as string,) as string", "f(s as string) as string x", "f(s as string = ) as string"}) {
    CAPTURE(text);
    CHECK(understood(text) == "nothing");
  }
}

TEST_CASE("a call may leave out what has a default") {
  const auto declaration = parseDeclaration("f(a as string, b as integer = 1, c as integer = 2) as string").value();
  CHECK_FALSE(declaration.accepts(0));
  for (const std::size_t count : {1U, 2U, 3U}) CHECK(declaration.accepts(count));
  CHECK_FALSE(declaration.accepts(4));
}

}  // namespace
}  // namespace standin
