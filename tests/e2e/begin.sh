# shellcheck shell=bash
# begin.sh PROGRAM SCREEN PICTURES: what every end-to-end test begins with; sourced with the test's own arguments.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
# shellcheck source=scripts/common.sh
source "$here/../../scripts/common.sh"
# shellcheck source=scripts/mouse.sh
source "$root/scripts/mouse.sh"
[[ $# -eq 3 ]] || fail "it is called with the program, lumipad_screen and a folder for pictures."
program=$1

rm -rf "$3"
mouse_begin "$2" "$3" "$root/examples/Demo Show"
pads_folder=$mouse_home/Documents/VirtualDJ/Pads

open_window() { mouse_open "$program"; }

# export_page NAME GOLDEN: clicks Export, answers the message, and compares the written file byte for byte.
export_page() {
    local written=$pads_folder/$1.xml
    click pushButton_2
    await_box "The message that the page is created"
    await find_box_button 1 || give_up "The message shows no button."
    picture exported
    answer_box 1
    [[ -f $written ]] || give_up "The pads page $1 was not written."
    same_file "$here/golden/$2" "$written"
}

# export_pads [overwrite]: clicks Export on the pads side and answers the message; with overwrite a file of that name
# is there and gives way.
export_pads() {
    click pushButton_2
    allow_overwrite "${1:-}"
    await_box "The message that the page is created"
    answer_box 1
}

# same_file EXPECTED WRITTEN: fails with the differing lines.
same_file() {
    cmp -s "$1" "$2" && return 0
    diff "$1" "$2" >&2 || true
    give_up "The file ${2##*/} differs from ${1##*/}: the lines with < were expected."
}

# same_mapper GOLDEN WRITTEN: the same for a mapper, which is written with the date of the day.
same_mapper() {
    local expected=$mouse_folder/$1
    sed "2s/ date=\"[^\"]*\"/ date=\"$(TZ=$mouse_zone date +%-d-%-m-%Y)\"/" "$here/golden/$1" >"$expected"
    same_file "$expected" "$2"
}

# close_window: closes the window with Live Buttons on its pads and answers Yes, the left one of the two buttons. The
# program ends then, with 0 only when nothing of its own was left over.
close_window() {
    request_close
    await_box "The question whether to exit"
    await find_box_button 2 || give_up "The question has no two buttons."
    answer_box 1 ends
    await_end 0
}
