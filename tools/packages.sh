# What run.sh and test.sh share: the Debian packages that the project needs, and how they are
# installed and what is built. To be sourced in the project's folder.

program_packages="g++ cmake ninja-build ccache qt6-base-dev libqscintilla2-qt6-dev
    qt6-svg-dev qt6-multimedia-dev libsndfile1-dev qt6-qpa-plugins csound csound-utils
    csound-doc xterm shared-mime-info"
test_packages="xvfb x11-utils x11-xkb-utils xclip procps xauth xdotool openbox python3
    fonts-dejavu-core pulseaudio pulseaudio-utils poppler-utils imagemagick xdg-utils
    libfile-mimeinfo-perl libglib2.0-bin desktop-file-utils dpkg-dev file fakeroot groff-base
    strace"

# Installs those of the named packages that are not there.
install_missing() {
    local missing as_root=""
    if ! command -v dpkg-query >/dev/null; then
        for tool in g++ cmake ninja csound; do
            command -v "$tool" >/dev/null || missing="${missing:-} $tool"
        done
        [ -z "${missing:-}" ] && return
        echo "This is no Debian system: please install $missing, Qt 6 and QScintilla for Qt 6." >&2
        exit 1
    fi
    missing=$(comm -23 <(printf '%s\n' "$@" | sort -u) <(installed_packages "$@"))
    [ -z "$missing" ] && return
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Missing packages, and no right to install them:" $missing >&2
            exit 1
        fi
        as_root=sudo
    fi
    echo "Installing" $missing
    $as_root apt-get update -qq
    $as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -qq -y --no-install-recommends $missing >/dev/null
}

installed_packages() {
    dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
        sed -n 's/^installed //p' | sort -u
}

# Configures once, then builds what changed of the named targets. More compilers at once than there
# are processors only push each other's headers out of the caches: a fifth more time in all.
build_targets() {
    [ -f build/release/build.ninja ] || cmake --preset release >/dev/null
    cmake --build build/release --parallel "$(nproc)" --target "$@"
}
