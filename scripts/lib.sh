# What the scripts share; sourced by each of them. Afterwards the working directory is the root of the project.

set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

jobs=$(nproc)

# usage FILE: prints the comment at the head of a script.
usage()
{
    sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$1"
}

# build PRESET: configures and builds.
build()
{
    cmake --preset "$1"
    cmake --build --preset "$1" --parallel "$jobs"
}

# with_display COMMAND...: runs a command on an X server of its own, with Mesa's software renderer.
#
# The server takes a free display number itself, says which once it listens, and is stopped afterwards. It keeps its
# state when the last client leaves (-noreset): a reset would cut off a client that is just coming. Its pointer rests
# in the middle of the screen; that lies outside a console-sized window in the corner, which so gets no events that
# nobody sent.
with_display()
(
    folder=$(mktemp -d)
    mkfifo "$folder/number"
    Xvfb -displayfd 3 -screen 0 1920x1080x24 -dpi 96 -nolisten tcp -noreset 3>"$folder/number" >"$folder/log" 2>&1 &
    server=$!
    trap 'kill "$server" 2>/dev/null || true; wait "$server" 2>/dev/null || true; rm -rf "$folder"' EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
    if ! read -r number <"$folder/number"
    then
        cat "$folder/log" >&2
        echo "Xvfb could not be started" >&2
        exit 1
    fi
    unset WAYLAND_DISPLAY
    export DISPLAY=":$number" LIBGL_ALWAYS_SOFTWARE=1
    "$@"
)
