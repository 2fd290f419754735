# Mends what the converter of a man page gets wrong: a line of code that begins with a point or an apostrophe is text
# and no macro, \fC is a font that not every reader of pages has, a paragraph does not follow its heading at once, a
# table without a heading has no row for it, and a table is as wide as a page of 80 columns at most.

# The columns that a text takes.
function Width(text) {
  gsub(/\\f[A-Z]|\\&|\\:/, "", text)
  gsub(/\\\(..|\\./, "x", text)
  return length(text)
}

# A text whose long words may be broken after a sign.
function Breakable(text, width,    words, count, i, result) {
  count = split(text, words, " ")
  for (i = 1; i <= count; ++i) {
    if (Width(words[i]) > width) gsub(/[\/,=|_.:-]/, "&\\:", words[i])
    result = result (i > 1 ? " " : "") words[i]
  }
  return result
}

# Reads the line of a table: cells by tabulators, a long one as a block of lines.
function ReadLine(line,    parts, count, i) {
  if (inBlock) {
    if (line !~ /^T}/) {
      cell[rows, columns] = cell[rows, columns] (cell[rows, columns] == "" ? "" : " ") line
      return
    }
    inBlock = 0
    if (line == "T}") return
    line = substr(line, 4)
  } else if (rows > 0 && columns < most && line ~ /^\t/) {
    line = substr(line, 2)
  } else {
    ++rows
    columns = 0
  }
  count = split(line, parts, "\t")
  if (count == 0) parts[count = 1] = ""
  for (i = 1; i <= count; ++i) cell[rows, ++columns] = parts[i]
  if (parts[count] == "T{") {
    cell[rows, columns] = ""
    inBlock = 1
  }
}

function IsEmpty(row,    i, text) {
  for (i = 1; i <= most; ++i) text = text cell[row, i]
  return Width(text) == 0
}

# The widest text of a column, and its longest word.
function Measure(column,    row, words, count, i) {
  width[column] = longest[column] = 1
  for (row = first; row <= rows; ++row) {
    if (Width(cell[row, column]) > width[column]) width[column] = Width(cell[row, column])
    count = split(cell[row, column], words, " ")
    for (i = 1; i <= count; ++i) if (Width(words[i]) > longest[column]) longest[column] = Width(words[i])
  }
}

# The part of the page that a wide column has; longer texts have a larger part.
function Share(column,    i, sum) {
  for (i = 1; i <= most; ++i) if (!isFixed[i]) sum += sqrt(width[i])
  return sum == 0 ? 0 : int(room * sqrt(width[column]) / sum)
}

# Sets a column whose texts fit into its share, or whose longest word does not. One more is set, or none is left.
function SetOneWidth(    i, share) {
  for (i = 1; i <= most; ++i) {
    if (isFixed[i]) continue
    share = Share(i)
    if (width[i] > share && (longest[i] <= share || longest[i] > 30)) continue
    if (width[i] > share) width[i] = longest[i]
    isFixed[i] = 1
    room -= width[i]
    return 1
  }
  return 0
}

# The widths of columns, which are together not wider than the page.
function SetWidths(    i, share) {
  room = 68 - 3 * (most - 1)
  for (i = 1; i <= most; ++i) {
    Measure(i)
    isFixed[i] = 0
  }
  while (SetOneWidth()) continue
  for (i = 1; i <= most; ++i) share[i] = Share(i)
  for (i = 1; i <= most; ++i) if (!isFixed[i]) width[i] = share[i]
}

function PrintCell(text, width) {
  if (Width(text) <= width) return text
  text = Breakable(text, width)
  return "T{\n.ad l\n.nh\n" (text ~ /^[.']/ ? "\\&" : "") text "\nT}"
}

function PrintTable(    i, row, line) {
  first = IsEmpty(1) ? 2 : 1
  SetWidths()
  print ".TS\nallbox;"
  for (i = 1; i <= most; ++i) line = line (i > 1 ? " " : "") "lw(" width[i] "n)"
  print line "."
  for (row = first; row <= rows; ++row) {
    line = ""
    for (i = 1; i <= most; ++i) line = line (i > 1 ? "\t" : "") PrintCell(cell[row, i], width[i])
    print line
  }
  print ".TE"
}

{ gsub(/\\fC/, "") }
/^\.TS$/ { inTable = 1; rows = columns = most = inBlock = 0; split("", cell); next }
/^\.TE$/ { inTable = 0; PrintTable(); next }
inTable && /^allbox;$/ { next }
inTable && /^(l ?)+\.?$/ { most = gsub(/l/, ""); next }
inTable { ReadLine($0); next }
/^\.nf$/ { inCode = 1; print; next }
/^\.fi$/ { inCode = 0 }
inCode && /^\./ { $0 = "\\&" $0 }
/^'/ { $0 = "\\&" $0 }
/^\.S[HS] / { afterHeading = 1; print; next }
afterHeading && /^(\.PP)?$/ { next }
{ afterHeading = 0; print }
