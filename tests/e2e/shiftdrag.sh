#!/usr/bin/env bash
# Holding Shift asks for a move instead of a copy. A pad dragged that way must arrive, and nothing may be lost.
set -euo pipefail
# shellcheck source=tests/e2e/begin.sh
source "$(dirname "$0")/begin.sh" "$@"

open_window
load_show "Demo Show"
drag_button 1 1
drag_button 2 2 shift
drag_button 3 3
picture_settled 1-dragged
drag_pad 1 6 shift
picture_settled 2-moved-to-an-empty-pad
drag_pad 6 3 shift
picture_settled 3-swapped
fill_edit padsname "Shift"
export_page "Shift" shiftdrag.xml
close_window
