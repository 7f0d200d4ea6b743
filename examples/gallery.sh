# shellcheck shell=sh
# The page of draw_all, $folder/index.html: each drawing with its input, its commands and its other formats.
# It is written as XML that browsers take for HTML, has no scripts and names nothing but files beside it.
# Sourced by draw_all, which has $folder and $project.
# shellcheck disable=SC2154

# What XML has no place for is left out.
gallery_escaped() {
    tr -d '\000-\010\013\014\015\016-\037' | sed -e 's/&/\&amp;/g' -e 's/</\&lt;/g' -e 's/>/\&gt;/g' -e 's/"/\&quot;/g'
}

gallery_write() {
    cat >>"$folder/index.html"
}

# The headings of the examples, as far as a word can say them.
gallery_kind() {
    case $1 in
    bar) echo 'Bar charts' ;;
    flatbubble) echo 'Packed circles' ;;
    gfdecl) echo 'Declarations' ;;
    gftree) echo 'Trees' ;;
    matrix) echo 'Dependency matrices' ;;
    sunburst) echo 'Sunbursts' ;;
    treemap) echo 'Treemaps' ;;
    umlseq) echo 'Sequence diagrams' ;;
    import) echo 'What other tools wrote' ;;
    *) echo "$1" ;;
    esac
}

# gallery_heading NAME: of an engine, or of the imports; the drawings that follow belong to it.
gallery_heading() {
    gallery_write <<HTML
<h2 id="$1">$(gallery_kind "$1") <code>$1</code></h2>
HTML
}

# gallery_entry DRAWING SUFFIXES COMMANDS: the drawing itself is its SVG.
gallery_entry() {
    {
        echo "<h3 id=\"$1\">$1</h3>"
        echo "<p class=\"drawing\"><a href=\"$1.svg\"><img src=\"$1.svg\" alt=\"$1\" loading=\"lazy\"/></a></p>"
        echo '<p>'
        for suffix in $2; do
            echo "<a href=\"$1.$suffix\">$suffix</a>"
        done
        echo '</p>'
        printf '<pre>%s</pre>\n' "$(printf '%s' "$3" | gallery_escaped)"
    } | gallery_write
}

# gallery_text TITLE FILE: the whole file, to be unfolded, unless it could not be made; the title is HTML.
gallery_text() {
    [ -e "$2" ] || return 0
    {
        printf '<details><summary>%s</summary><pre>' "$1"
        gallery_escaped <"$2"
        printf '</pre></details>\n'
    } | gallery_write
}

# The same with 20 lines of 160 bytes at the most. A byte that begins a letter cut in two is left out.
gallery_beginning() {
    [ -e "$2" ] || return 0
    {
        printf '<details><summary>%s</summary><pre>' "$1"
        head -n 20 "$2" | cut -b -160 | iconv -c -f UTF-8 -t UTF-8 | gallery_escaped
        echo '</pre></details>'
    } | gallery_write
}

gallery_begin() {
    gallery_write <<'HTML'
<!DOCTYPE html>
<html xmlns="http://www.w3.org/1999/xhtml" lang="en">
<head>
<meta charset="utf-8"/>
<meta name="viewport" content="width=device-width, initial-scale=1"/>
<meta name="color-scheme" content="light dark"/>
<title>The examples of orrlayout</title>
<style>
:root { color-scheme: light dark; }
body { max-width: 75rem; margin: 2rem auto; padding: 0 1rem; font: 1rem/1.5 sans-serif; color: #1f2328; background: #f6f8fa; }
a { color: #0550ae; }
a:focus-visible, summary:focus-visible { outline: 2px solid currentColor; outline-offset: 2px; }
pre { overflow: auto; max-height: 30rem; padding: 0.5rem 0.75rem; border: 1px solid #d0d7de; background: #ffffff; }
summary { cursor: pointer; }
.drawing { padding: 1rem; overflow: auto; background: #ffffff; border: 1px solid #d0d7de; }
.drawing img { max-width: 100%; height: auto; }
@media (prefers-color-scheme: dark) {
  body { color: #e6edf3; background: #0d1117; }
  a { color: #79c0ff; }
  pre { border-color: #30363d; background: #161b22; }
  .drawing { border-color: #30363d; }
}
</style>
</head>
<body>
<h1>The examples of orrlayout</h1>
<p>Each drawing with its commands, its input and its other formats. The commands are those of the folder of
the project, with its programs in the path.</p>
HTML
    {
        echo '<p>'
        for engine in "$project"/examples/*/; do
            ls "$engine"*.dot >/dev/null 2>&1 || continue
            echo "<a href=\"#$(basename "$engine")\">$(basename "$engine")</a>"
        done
        echo '<a href="#import">import</a></p>'
    } | gallery_write
}

gallery_end() {
    gallery_write <<'HTML'
</body>
</html>
HTML
}
