#!/usr/bin/env bash
# A whole evening's work on both sides is exported and saved, loaded again by a new start of the program, and exported
# and saved again: every file is the same as before.
set -euo pipefail
# shellcheck source=tests/e2e/begin.sh
source "$(dirname "$0")/begin.sh" "$@"

page=$pads_folder/Evening.xml
mapper=$(mapper_path "Novation Launchpad S" "Late Night")
files=("$page" "$(project_path Pads)" "$mapper" "$(project_path Midi)")

# keep: puts copies of the four files aside. spoil: leaves something else in the place of a file, so that only a file
# that is written again can be the same as before.
keep() {
    mkdir "$mouse_folder/kept"
    cp "${files[@]}" "$mouse_folder/kept"
}
spoil() { say "to be overwritten" >"$1"; }
same_as_kept() { same_file "$mouse_folder/kept/${1##*/}" "$1"; }

open_window
load_show "Demo Show"
drag_button 1 1
drag_button 2 2
drag_button 3 8
edit_pad 2 "Dark 'n' quiet"
choose_bank 4
fill_edit bankname "SLOW"
# No name with a "&": the project keeps it as it is, and could not be read again.
drag_button 6 1
drag_button 5 5
drag_pad 1 3
fill_edit padsname "Evening"
picture_settled 1-pads
export_pads
same_file "$here/golden/whole-page.xml" "$page"
save_project Pads

switch_to midi
choose_item devicescombo 6 7
choose_item mididevices 2 2
drag_to_cell 1 2 2
drag_to_cell 2 2 3
drag_to_cell 3 6 6
drag_to_cell 5 2 11
drag_to_cell 6 0 5
# The two change places.
drag_cell 2 2 6 6
choose_item combo_offcolor 5 16
choose_item combo_oncolor 7 16
select_cells 2 2 2 3
set_color 2 3 on 4 16
set_color 2 3 off 1 16
select_cells 6 6
set_color 6 6 on 16 16
toggle_blink 6 6
set_switch 9 9
fill_edit padsname "Late Night"
picture_settled 2-midi
export_mapper "Novation Launchpad S" "Late Night"
same_mapper whole-mapper.xml "$mapper"
save_project Midi

close_window
keep

open_window
load_project Pads pads
picture_settled 3-pads-loaded
spoil "$page"
export_pads overwrite
same_as_kept "$page"
spoil "$(project_path Pads)"
save_project Pads overwrite
same_as_kept "$(project_path Pads)"

load_project Midi midi replace
# Which mapping was chosen is not part of a project. The exported one is now the third choice.
choose_item mididevices 2 3
picture_settled 4-midi-loaded
spoil "$mapper"
export_mapper "Novation Launchpad S" "Late Night" overwrite
same_as_kept "$mapper"
spoil "$(project_path Midi)"
save_project Midi overwrite
same_as_kept "$(project_path Midi)"
close_window
