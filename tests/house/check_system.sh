#!/usr/bin/env bash
# Holds what only one system has together in platform/<system>/: no other source includes a header of
# a system or what lies in such a folder, names a place that only one system has, or keeps a pointer
# in a long.
set -u
cd "$1" || exit 2
failures=0

fail() {
    echo "$*"
    failures=$((failures + 1))
}

# outside WORDS PATTERN: no source but those of a system has a line with PATTERN.
outside() {
    while IFS=: read -r file line text; do
        fail "$file:$line: $1 belongs to platform/<system>: $text"
    done < <(grep -rnP "$2" --include='*.cpp' --include='*.h' . |
        grep -vP '^\./platform/(?!ui/)[a-z]+/')
}

headers='aio|alloca|arpa/.*|dirent|dlfcn|errno|fcntl|grp|io|libproc|linux/.*|mach/.*|net/.*'
headers+='|netinet/.*|poll|pthread|pwd|sched|signal|spawn|sys/.*|syslog|termios|unistd|windows'
headers+='|winsock2|X11/.*|xcb/.*'
outside 'a header of the system' "^ *# *include *<($headers)\.h>"
outside 'a header of the system' '^ *# *include *<(QtDBus|QDBus|QtX11|QX11|qpa/|AppKit/|CoreFoundation/)'
outside 'what lies there' '^ *# *include *"platform/(?!ui/)[a-z]+/'
outside 'a place of the system' '"/(proc|sys|dev|etc|usr)/'
outside 'a place of the desktop' 'mimeapps\.list|hicolor|mime/packages|\bupdate-(mime|desktop)-database'
outside 'a question which system this is' '\b(Q_OS_[A-Z]+|__linux__|__APPLE__|_WIN32)\b'

# What the editor's library gives as a pointer it must be asked for by a routine that holds one.
while IFS=: read -r file line text; do
    fail "$file:$line: a pointer passes through a long: $text"
done < <(grep -rnE '\b(send|SendScintilla)\([^;]*SCI_[A-Z]*POINTER|reinterpret_cast<(unsigned )?long>' \
    --include='*.cpp' --include='*.h' .)
[ "$failures" -eq 0 ]
