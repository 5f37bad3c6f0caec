#!/usr/bin/env bash
# onxserver.sh COMMAND...: runs the command on a virtual X display of its own, large enough for the widest window at
# the largest scale, and gives its exit code.
set -euo pipefail
folder=$(mktemp -d "${TMPDIR:-/tmp}/lumipad.XXXXXX")
display_pid=
end() {
    if [[ -n $display_pid ]]; then
        kill "$display_pid" 2>/dev/null || true
        wait "$display_pid" 2>/dev/null || true
    fi
    rm -rf "$folder"
}
trap end EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

command -v Xvfb >/dev/null || {
    printf 'Xvfb is missing, and without it there is no X display; scripts/install installs it.\n' >&2
    exit 1
}
# Where it cannot make its socket it goes on trying without end.
[[ -w /tmp ]] || {
    printf 'The virtual display needs /tmp, which cannot be written.\n' >&2
    exit 1
}
# The display picks a free number itself and writes it down once it answers.
Xvfb -displayfd 5 -screen 0 4200x1900x24 -nolisten tcp -noreset 5>"$folder/display" >"$folder/log" 2>&1 &
display_pid=$!
for ((polls = 0; polls < 1200; ++polls)); do
    [[ ! -s $folder/display ]] || break
    kill -0 "$display_pid" 2>/dev/null || break
    sleep 0.05
done
[[ -s $folder/display ]] || {
    printf 'The virtual display did not start: %s\n' "$(tail -n 3 "$folder/log")" >&2
    exit 1
}
unset XAUTHORITY WAYLAND_DISPLAY
DISPLAY=:$(<"$folder/display") "$@"
