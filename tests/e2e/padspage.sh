#!/usr/bin/env bash
# From a show to a pads page, by the mouse alone but for the names typed.
set -euo pipefail
# shellcheck source=tests/e2e/begin.sh
source "$(dirname "$0")/begin.sh" "$@"

open_window
# While the list of pages is empty it holds no text, so the arrow, a drawn image, alone has this colour.
await shows combobox "#bbbbbb" || give_up "The box of the Live pages has no arrow."
picture_settled 1-started
load_show "Demo Show"
picture_settled 2-loaded

drag_button 1 1
drag_button 2 2
drag_button 3 3
picture_settled 3-dragged
drag_pad 3 5
picture_settled 4-moved-to-an-empty-pad
drag_pad 1 2
picture_settled 5-swapped
drag_button 4 2
picture_settled 6-replaced

choose_bank 3
drag_button 5 7
edit_pad 7 "Rock 'n' <Roll> & \"Go\""
picture_settled 7-bank-3-edited

fill_edit padsname "My Night"
picture_settled 8-named
export_page "My Night" padspage.xml

# A second export of the same name asks first, and No, the right one of its two buttons, leaves the file alone.
drag_pad 7 8
click pushButton_2
await_box "The question whether to overwrite"
await find_box_button 2 || give_up "The question has no two buttons."
picture 9-overwrite
answer_box 2
same_file "$here/golden/padspage.xml" "$pads_folder/My Night.xml"
close_window
