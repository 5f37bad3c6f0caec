#!/usr/bin/env bash
# The close box asks before filled pads are lost, and only then.
set -euo pipefail
# shellcheck source=tests/e2e/begin.sh
source "$(dirname "$0")/begin.sh" "$@"

open_window
load_show "Demo Show"
request_close
await_end 0

open_window
load_show "Demo Show"
drag_button 1 1
request_close
await_box "The question whether to exit"
await find_box_button 2 || give_up "The question has no two buttons."
picture 1-asked
# The right one of the two buttons is Cancel.
answer_box 2
settle
picture 2-cancelled
# What was on the pads is still there to export.
fill_edit padsname "Still here"
export_page "Still here" close.xml

close_window
