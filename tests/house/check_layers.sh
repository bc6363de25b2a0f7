#!/usr/bin/env bash
# Holds the order between the folders of src/: a file includes only its own folder and those below
# it, and what belongs to the system or to one library is included where it is meant to be.
set -u
cd "$1" || exit 2
failures=0

fail() {
    echo "$*"
    failures=$((failures + 1))
}

level() {
    case $1 in
        platform) echo 0 ;;
        app) echo 1 ;;
        start | language) echo 2 ;;
        piece) echo 3 ;;
        workbench) echo 4 ;;
        navigation | audio | help | associations) echo 5 ;;
        compile | preferences | printing | analysis | insight | typing) echo 6 ;;
        check) echo 7 ;;
        documents) echo 8 ;;
        *) echo 9 ;;
    esac
}

includes() { grep -rnE "^#include $1" --include='*.cpp' --include='*.h' .; }

while IFS=: read -r file line text; do
    from=${file#./} from=${from%%/*}
    [ -d "$from" ] || continue # main.cpp stands above all
    to=${text#*\"} to=${to%%/*}
    if [ "$from" != "$to" ] && [ "$(level "$to")" -ge "$(level "$from")" ]; then
        fail "$file:$line: $from must not know $to"
    fi
done < <(includes '"')

# only PATTERN PLACE: no file but those under PLACE includes what PATTERN names.
only() {
    while IFS=: read -r file line text; do
        case ${file#./} in
            $2*) ;;
            *) fail "$file:$line: ${text#\#include } belongs to $2 alone" ;;
        esac
    done < <(includes "$1")
}

only '<Qsci' language/editor/
only '<QProcess>' platform/
only '<(QtMultimedia|QAudio[A-Za-z]*|QMedia[A-Za-z]*|sndfile\.h)>' platform/ui/
only '<(QMessageBox|QFileDialog|QColorDialog|QInputDialog)>' platform/ui/
only '<(QtPrintSupport|QPrint[A-Za-z]*|QAbstractPrintDialog|QPageSetupDialog)>' platform/ui/

if includes '<QtWidgets|<Q(Widget|Application|MainWindow|Dialog|Label|Menu)>' |
    grep -vE '^\./(main\.cpp|[a-z]+/ui/|language/editor/)'; then
    fail "a rule without a window includes a widget"
fi

# The text of a command becomes its arguments in one place; whoever has a text asks commandOf.
while IFS=: read -r file line _; do
    fail "$file:$line: splitCommandText is for platform/CommandText alone"
done < <(grep -rn 'splitCommandText(' --include='*.cpp' --include='*.h' . |
    grep -v '^\./platform/CommandText\.')
[ "$failures" -eq 0 ]
