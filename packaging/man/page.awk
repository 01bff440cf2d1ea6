# Makes a manual page of NAME.1.in. A line "@table FILE" becomes an entry for each line of the tables in that document,
# first cell and last; below "@table FILE HEADING" of those below that heading alone. @VERSION@, @DATE@ and @DOC@ (where the
# documents are) come from -v; root is the folder of the sources.

function roff(text) {
  gsub(/\\\|/, "\001", text)  # a bar within a cell
  gsub(/\\/, "\\e", text)
  gsub(/-/, "\\-", text)
  while (match(text, /\[[^]]*\]\([^)]*\)/)) {  # a link is told by its words
    link = substr(text, RSTART + 1, RLENGTH - 1)
    sub(/\].*/, "", link)
    text = substr(text, 1, RSTART - 1) link substr(text, RSTART + RLENGTH)
  }
  while (match(text, /`[^`]*`/))
    text = substr(text, 1, RSTART - 1) "\\fB" substr(text, RSTART + 1, RLENGTH - 2) "\\fR" substr(text, RSTART + RLENGTH)
  gsub(/\001/, "|", text)
  if (text ~ /^[.']/) text = "\\&" text
  return text
}

function table(file, heading,    line, cells, count, inside, on) {
  on = heading == ""
  while ((getline line < file) > 0) {
    if (line ~ /^#/) {
      if (heading != "") on = line ~ ("^#+ " heading "$")
      inside = 0
    }
    if (line ~ /^\|-/) inside = 1
    else if (line !~ /^\|/) inside = 0
    else if (inside && on) {
      gsub(/\\\|/, "\001", line)
      count = split(line, cells, / *\| */)
      gsub(/\001/, "\\|", cells[2]); gsub(/\001/, "\\|", cells[count - 1])
      print ".TP\n" roff(cells[2]) "\n" roff(cells[count - 1])
    }
  }
  close(file)
}

/^@table / {
  heading = $0
  sub(/^@table [^ ]+ ?/, "", heading)
  table(root "/" $2, heading)
  next
}
{
  gsub(/@VERSION@/, version)
  gsub(/@DATE@/, date)
  gsub(/@DOC@/, doc)
  print
}
