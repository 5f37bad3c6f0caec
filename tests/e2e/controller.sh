#!/usr/bin/env bash
# Every MIDI controller in turn, by the mouse alone but for the names typed: Live Buttons placed and moved, a colour,
# blink, the switch, and the mapper that VirtualDJ gets.
set -euo pipefail
# shellcheck source=tests/e2e/begin.sh
source "$(dirname "$0")/begin.sh" "$@"

# In the order of the device box: the id, the number of palette colours (0: RGB LEDs), the row and column of a side
# button besides the one on the right, those of the switch, and the name. The two-colour Launchpads have two controls
# on the cell 2, 2, and none on 3, 2.
devices=(
    "APCMINI       4   11 2   11 9  Akai APC Mini"
    "NLMINIMK3     0    0 2    9 9  Novation Launchpad Mini MK3"
    "LAUNCHPADMINI 16   0 2    9 3  Novation Launchpad Mini"
    "LAUNCHPAD2    0    0 9    9 11 Novation Launchpad MKII"
    "LAUNCHPADPRO  0    2 0   11 9  Novation Launchpad PRO"
    "LAUNCHPADS    16   0 9    0 4  Novation Launchpad S"
    "LAUNCHPAD     16   0 5    3 2  Novation Launchpad"
)

open_window
load_show "Demo Show"
switch_to midi
fill_edit padsname "Night"

number=0
for device in "${devices[@]}"; do
    number=$((number + 1))
    read -r id colors side_row side_column switch_row switch_column name <<<"$device"
    ((number == 1)) || choose_item devicescombo "$number" "${#devices[@]}"
    # The simple mapping comes first, the factory's second; the folder of the user's own was empty at the start.
    choose_item mididevices 2 2

    drag_to_cell 1 2 2
    drag_to_cell 2 2 11
    drag_to_cell 3 "$side_row" "$side_column"
    drag_to_cell 5 3 3
    drag_cell 3 3 5 6
    drag_to_cell 6 9 8
    if ((colors > 0)); then
        set_color 2 2 on 3 "$colors"
        set_color 5 6 off 2 "$colors"
    else
        ask_color 2 2 on "#12ab34"
        ask_color 5 6 off "#200040"
    fi
    toggle_blink 2 2
    # There is one switch at most: the second cell takes it from the first.
    set_switch 9 2
    set_switch "$switch_row" "$switch_column"
    picture_settled "$number-$id"

    export_mapper "$name" "Night"
    same_mapper "mapper-${id,,}.xml" "$(mapper_path "$name" "Night")"

    unset_switch "$switch_row" "$switch_column"
    click cleanmidi_button
    settle
done

# Nothing is placed any more, so the window closes unasked.
request_close
await_end 0
