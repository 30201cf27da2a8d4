# manual_from_text(TEXT OUT): what stands in a text such as readme.txt as the body of a manual page, in mdoc. A heading is
# underlined and becomes a subsection; indented paragraphs are shown as they are.
function(manual_from_text text out)
  string(REPLACE "\\" "\\e" text "\n${text}")
  string(REGEX REPLACE "\n([.'])" "\n\\\\&\\1" text "${text}")
  string(REGEX REPLACE "\n\n+" "\n.Pp\n" text "${text}")
  string(REGEX REPLACE "\n.Pp\n(   [^\n]*(\n   [^\n]*)*)" "\n.Bd -literal -offset 2n\n\\1\n.Ed" text "${text}")
  string(REGEX REPLACE "\n.Pp\n([^\n]+)\n---+(\n.Pp)?" "\n.Ss \\1" text "${text}")
  string(REGEX REPLACE "\n   " "\n" text "${text}")
  string(REGEX REPLACE "^\n" "" text "${text}")
  set(${out} "${text}" PARENT_SCOPE)
endfunction()
