# The points of a list in Markdown as the entries of a Debian change log: without links and emphasis, in lines of at most
# 80 columns.

function Flush(    words, count, i, line) {
  count = split(entry, words, " ")
  if (count == 0) return
  line = "  *"
  for (i = 1; i <= count; ++i) {
    if (length(line) + length(words[i]) + 1 > 79) {
      print line
      line = "   "
    }
    line = line " " words[i]
  }
  print line
  entry = ""
}

{ gsub(/\*\*/, "") }
/^- / { Flush(); entry = substr($0, 3); next }
/^  / { entry = entry " " $0; next }
{ Flush() }
END { Flush() }
