# shellcheck shell=bash
# Drives the real window with real mouse and key events on a virtual X display, for the demo and for the tests.
# Sourced after common.sh. Nothing here waits a fixed time: every step waits until its effect can be seen, and
# gives up with a sentence and a picture when it does not come.
#
# There is no window manager on that display, so the scripts give the keyboard to a window themselves, and every
# window that the program shows is a child of the root window: the drag picture and the popups included.

# Seconds until a step counts as failed. Far more than any step needs: only a broken step should ever use it.
patience=90
poll_seconds=0.05

# Where the widgets are: x, y, width and height in the window's central widget, whose corner mouse_open finds.
declare -A widget=(
    [loadini]="130 60 131 31"
    [combobox]="20 120 241 27"
    [dmxlistview]="20 180 241 240"
    [bankcombo]="460 117 61 30"
    [bankname]="460 152 141 22"
    [radioButton_8pads]="360 88 81 22"
    [radioButton_16pads]="460 88 91 22"
    [vdjlistview]="300 180 301 240"
    [pushButton_2]="120 490 131 31"
    [padsname]="410 490 191 31"
    [radio_outputpage]="301 50 101 22"
    [radio_outputmidi]="410 50 131 22"
    [devicescombo]="360 90 241 24"
    [mididevices]="690 90 251 24"
    [combo_offcolor]="1090 85 111 24"
    [combo_oncolor]="1240 85 111 24"
    [tablecontroller]="300 120 1028 346"
    [cleanmidi_button]="300 120 95 31"
)
row_height=30
pad_width=150
cell_width=95
# The second line from each side of the controller grid is a spacer.
spacer=5
# What surrounds the items of a context menu, and how high a separator in it is.
menu_frame=3
menu_separator=11
# Where in a row, pad or cell the mouse takes hold, from its left top corner.
hold_x=60
hold_y=15
# A point of the central widget where nothing lights up under the mouse.
idle_point="640 560"

# The colours that tell what has happened, as the window's style sheets give them.
color_background="#202020"
color_button="#303030"
color_button_hover="#404040"
color_edit_focus="#aaaaaa"
color_menu_hover="#404040"
color_cell_selected="#404040"
color_switch_cell="#303030"

mouse_folder=     # temporary: the home folder of the program, its output, the display's output
mouse_home=       # what the program takes for the home folder
mouse_pictures=   # where pictures go
mouse_screen=     # the program lumipad_screen
mouse_zone=       # the time zone of the program, see mouse_begin
mouse_display_pid=
mouse_app_pid=
mouse_window=     # the main window's id
mouse_left=       # the central widget's corner on the screen
mouse_top=
# The window that await_box found beside the main one.
box_id=
box_x=
box_y=
box_w=
box_h=
box_title=

# mouse_begin SCREEN PICTURES SHOW: starts a display and makes a home folder that holds the show where the lighting
# program keeps its shows, and the folders that VirtualDJ keeps its pads pages and mappers in.
mouse_begin() {
    mouse_screen=$1
    mouse_pictures=$2
    local show=$3 tool
    for tool in Xvfb xdotool; do
        have "$tool" || fail "$tool is missing, and without it no mouse can be moved; ./check installs it."
    done
    [[ -x $mouse_screen ]] || fail "$mouse_screen is missing; it is built with the tests."
    [[ -f $show/Live/live.ini ]] || fail "$show holds no Live/live.ini, so there is no show to load."

    mouse_folder=$(mktemp -d "${TMPDIR:-/tmp}/lumipad.XXXXXX")
    trap mouse_end EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
    mouse_home=$mouse_folder/home
    mkdir -p "$mouse_pictures" "$mouse_home/Documents/VirtualDJ/"{Pads,Mappers} "$mouse_home/.config" \
        "$mouse_home/.run" "$mouse_home/TheLightingController/LightShows"
    chmod 700 "$mouse_home/.run"
    # The mapper file holds the date. Where the program is it is about noon, so no run goes over midnight.
    mouse_zone=NOON$(($(date -u +%-H) - 12))
    cp -R "$show" "$mouse_home/TheLightingController/LightShows/"

    # The display picks a free number itself and writes it down once it answers.
    Xvfb -displayfd 5 -screen 0 1400x800x24 -nolisten tcp -noreset \
        5>"$mouse_folder/display" >"$mouse_folder/display.log" 2>&1 &
    mouse_display_pid=$!
    await display_ready || fail "the virtual display did not start: $(tail -n 3 "$mouse_folder/display.log")"
    DISPLAY=:$(<"$mouse_folder/display")
    export DISPLAY
    unset XAUTHORITY WAYLAND_DISPLAY
}

display_ready() { [[ -s $mouse_folder/display ]]; }

mouse_end() {
    if [[ -n $mouse_app_pid ]]; then kill -KILL "$mouse_app_pid" 2>/dev/null || true; fi
    if [[ -n $mouse_display_pid ]]; then kill "$mouse_display_pid" 2>/dev/null || true; fi
    wait 2>/dev/null || true
    rm -rf "$mouse_folder"
}

# await CONDITION...: true as soon as the command is; false when patience has run out, or when the display or the
# program has ended.
await() {
    local end=$((SECONDS + patience)) pid
    until "$@"; do
        ((SECONDS < end)) || return 1
        for pid in $mouse_display_pid $mouse_app_pid; do
            kill -0 "$pid" 2>/dev/null || return 1
        done
        sleep "$poll_seconds"
    done
}

# give_up SENTENCE: ends the script with the sentence, what the program has written, and a picture of the screen.
give_up() {
    local picture=$mouse_pictures/failure.png
    "$mouse_screen" save "$picture" || true
    if [[ -s $mouse_folder/lumipad.log ]]; then
        say "The program wrote:" >&2
        tail -n 60 "$mouse_folder/lumipad.log" >&2
    fi
    [[ -z $mouse_app_pid ]] || kill -0 "$mouse_app_pid" 2>/dev/null || say "The program has ended." >&2
    fail "$1 (picture: $picture)"
}

# mouse_open PROGRAM: starts the program, waits for its window and finds the central widget in it.
mouse_open() {
    local name settings=()
    # A plain desktop, whatever the user's own: no theme, no scale, no message bus. Only what tells the sanitizers
    # and the loader how to work comes along. The virtual display makes up a resolution of its own, by which the
    # window would be scaled.
    for name in PATH LD_LIBRARY_PATH QT_PLUGIN_PATH ASAN_OPTIONS LSAN_OPTIONS UBSAN_OPTIONS; do
        [[ -z ${!name:-} ]] || settings+=("$name=${!name}")
    done
    env -i "${settings[@]}" DISPLAY="$DISPLAY" HOME="$mouse_home" XDG_CONFIG_HOME="$mouse_home/.config" \
        XDG_RUNTIME_DIR="$mouse_home/.run" LC_ALL=C.UTF-8 TZ="$mouse_zone" DBUS_SESSION_BUS_ADDRESS=disabled: \
        QT_QPA_PLATFORM=xcb QT_XCB_GL_INTEGRATION=none QT_FONT_DPI=96 "$1" >"$mouse_folder/lumipad.log" 2>&1 &
    mouse_app_pid=$!
    await find_main_window || give_up "The window did not appear."
    await find_central_widget || give_up "The window appeared but was not drawn."
    focus_main
}

# The visible windows of the program but the main one, as "id x y w h title" lines.
other_windows() { "$mouse_screen" windows "$mouse_app_pid" | grep -v "^${mouse_window:-none} " || true; }
no_other_window() { [[ -z $(other_windows) ]]; }

find_main_window() {
    read -r mouse_window mouse_left mouse_top _ < <("$mouse_screen" windows "$mouse_app_pid" | grep 'Lumipad') &&
        [[ -n $mouse_window ]]
}

# The menu bar is as high as its font makes it; the central widget begins where its colour does.
find_central_widget() {
    local y
    read -r _ y _ < <("$mouse_screen" find "$((mouse_left + 2))" "$mouse_top" 6 100 "$color_background" 6 10) &&
        [[ -n $y ]] && mouse_top=$y
}

title_is() { [[ $("$mouse_screen" windows "$mouse_app_pid" | sed -n "s/^$mouse_window \([0-9-]* \)\{4\}//p") == "$1" ]]; }
has_focus() { [[ $(xdotool getwindowfocus 2>/dev/null) == "$1" ]]; }

# focus_window ID: gives the keyboard to the window, as a window manager would.
focus_window() {
    xdotool windowfocus "$1" 2>/dev/null || true
    has_focus "$1"
}
focus_main() { await focus_window "$mouse_window" || give_up "The window did not take the keyboard."; }

# point NAME [DX DY]: sets x and y to the middle of the widget, or to the given distance from its corner.
point() {
    local left top width height
    read -r left top width height <<<"${widget[$1]}"
    x=$((mouse_left + left + ${2:-$((width / 2))}))
    y=$((mouse_top + top + ${3:-$((height / 2))}))
}

# The places where the mouse takes hold of the n-th visible row of the list, and of pad 1 to 16 of the shown bank.
point_button() { point dmxlistview "$hold_x" "$((($1 - 1) * row_height + hold_y))"; }
point_pad() {
    local column=$((($1 - 1) / 8)) row=$((($1 - 1) % 8))
    point vdjlistview "$((column * pad_width + hold_x))" "$((row * row_height + hold_y))"
}

color_is() { [[ $("$mouse_screen" color "$1" "$2") == "$3" ]]; }

# shows NAME #rrggbb: whether any pixel of the widget has the colour.
shows() {
    local left top width height
    read -r left top width height <<<"${widget[$1]}"
    [[ -n $("$mouse_screen" find "$((mouse_left + left))" "$((mouse_top + top))" "$width" "$height" "$2" 1 1) ]]
}

mouse_idle() {
    local idle_x idle_y
    read -r idle_x idle_y <<<"$idle_point"
    xdotool mousemove "$((mouse_left + idle_x))" "$((mouse_top + idle_y))"
}

# settle: returns once the window has handled every earlier event: it handles them in order, so it has when the
# Export button has lit up under the mouse and gone dark again. Not while a box or popup is open.
settle() {
    local x y
    point pushButton_2 6
    await lights_up "$x" "$y" "$color_button_hover" || give_up "The Export button did not light up under the mouse."
    mouse_idle
    await color_is "$x" "$y" "$color_button" || give_up "The Export button did not go dark when the mouse left it."
}

# lights_up X Y COLOR: whether the pixel has the colour that it takes under the mouse. The mouse goes there and keeps
# moving: the first move is lost when a dialog that has just disappeared still keeps the mouse from the window.
lights_up() {
    xdotool mousemove "$(($1 + RANDOM % 5))" "$2"
    color_is "$1" "$2" "$3"
}

# picture NAME: a picture of the screen as it is.
picture() { "$mouse_screen" save "$mouse_pictures/$1.png" || give_up "No picture could be saved."; }

# picture_settled NAME: a picture of the window alone, when it has handled everything.
picture_settled() {
    local x y w h
    settle
    read -r x y w h < <("$mouse_screen" windows "$mouse_app_pid" | sed -n "s/^$mouse_window //p")
    "$mouse_screen" save "$mouse_pictures/$1.png" "$x" "$y" "$w" "${h%% *}" || give_up "No picture could be saved."
}

click() {
    local x y
    point "$@"
    xdotool mousemove "$x" "$y" click 1
}

# await_box WHAT: waits for one window beside the main one and notes where it is.
await_box() { await find_box || give_up "$1 did not appear."; }
find_box() {
    read -r box_id box_x box_y box_w box_h box_title < <(other_windows) && [[ -n $box_id ]]
}

# answer_box N: clicks the n-th button of the message box, from the left, and waits until the box is gone.
answer_box() {
    local button_x button_y button_w button_h
    mouse_idle
    await find_box_button "$1" || give_up "The box has no button number $1."
    xdotool mousemove "$((button_x + button_w / 2))" "$((button_y + button_h / 2))" click 1
    await no_other_window || give_up "The box did not close."
    [[ ${2:-stay} == ends ]] || focus_main
}

# Buttons are the only boxes of their colour; above its text each shows a plain strip as wide as itself.
find_box_button() {
    find_box || return 1
    read -r button_x button_y button_w button_h < <(
        "$mouse_screen" find "$box_x" "$box_y" "$box_w" "$box_h" "$color_button" 40 2 |
            awk -v n="$1" 'NR == 1 { row = $2 } $2 == row && ++count == n'
    ) && [[ -n $button_x ]]
}

# load_show NAME: "Load DMX Show", and the name typed into the folder dialog, which opens at the shows.
load_show() {
    click loadini
    await_box "The folder dialog"
    await focus_window "$box_id" || give_up "The folder dialog did not take the keyboard."
    [[ $box_title == "Select a Show" ]] || give_up "The folder dialog is called \"$box_title\"."
    xdotool type --clearmodifiers "$mouse_home/TheLightingController/LightShows/$1"
    xdotool key Return
    await no_other_window || give_up "The folder dialog did not close."
    focus_main
    await title_is "Lumipad - $1" || give_up "The show $1 was not loaded."
}

# drag_to X Y [KEY]: carries what is under the mouse to the point; KEY is held down from when the drag has begun
# until it has ended.
drag_to() {
    local to_x=$1 to_y=$2 key=${3:-} from_x from_y
    eval "$(xdotool getmouselocation --shell | sed -n 's/^X=/from_x=/p; s/^Y=/from_y=/p')"
    xdotool mousedown 1
    await drag_has_begun "$from_x" "$from_y" || give_up "The drag did not begin."
    [[ -z $key ]] || xdotool keydown "$key"
    # Twice: the second of two moves tells the receiver that the mouse moves on it, not only that it came.
    xdotool mousemove "$to_x" "$((to_y + 4))"
    await drag_is_at "$to_x" "$((to_y + 4))" || give_up "The drag did not follow the mouse."
    xdotool mousemove "$to_x" "$to_y"
    await drag_is_at "$to_x" "$to_y" || give_up "The drag did not follow the mouse."
    xdotool mouseup 1
    await no_other_window || give_up "The drag did not end."
    [[ -z $key ]] || xdotool keyup "$key"
    settle
}

# A drag begins once the mouse has gone some way with its button down; the drag picture then is a window. The mouse
# goes to and fro in the row until it shows, as moves that come too early do not count.
drag_has_begun() {
    xdotool mousemove "$(($1 + 14 + RANDOM % 12))" "$2"
    ! no_other_window
}

# The drag picture is the row, held where the mouse took hold of it.
drag_is_at() {
    find_box || return 1
    local off_x=$(($1 - hold_x - box_x)) off_y=$(($2 - hold_y - box_y))
    ((off_x >= -2 && off_x <= 2 && off_y >= -2 && off_y <= 2))
}

# drag_button ROW PAD [KEY]: from the n-th row of the Live Buttons list onto a pad of the shown bank.
drag_button() {
    local x y
    point_button "$1"
    xdotool mousemove "$x" "$y"
    point_pad "$2"
    drag_to "$x" "$y" "${3:-}"
}

# drag_pad FROM TO [KEY]: from a pad of the shown bank onto another.
drag_pad() {
    local x y
    point_pad "$1"
    xdotool mousemove "$x" "$y"
    point_pad "$2"
    drag_to "$x" "$y" "${3:-}"
}

# choose_bank N: bank 1 to 8, from the popup of the bank box.
choose_bank() { choose_item bankcombo "$1" 8; }

# choose_item NAME N COUNT: the n-th of the COUNT entries of a combo box, from its popup, which shows them all.
choose_item() {
    click "$1"
    await_box "The list of $1"
    # A popup lets clicks through only once it has seen the mouse move.
    await click_item "$2" "$3" || give_up "Entry $2 of $1 could not be chosen."
    settle
}
click_item() {
    find_box || return 0
    xdotool mousemove "$((box_x + box_w / 3))" "$((box_y + box_h * (2 * $1 - 1) / (2 * $2)))"
    xdotool mousemove "$((box_x + box_w / 4))" "$((box_y + box_h * (2 * $1 - 1) / (2 * $2)))" click 1
    no_other_window
}

# switch_to pads|midi: the radio button of that output; the MIDI side makes the window wider.
switch_to() {
    local name=radio_outputpage
    [[ $1 == pads ]] || name=radio_outputmidi
    click "$name"
    mouse_idle
    await width_fits "$1" || give_up "The window did not show the side of $1."
    settle
}
width_fits() {
    local window_width
    read -r _ _ window_width _ < <("$mouse_screen" windows "$mouse_app_pid" | sed -n "s/^$mouse_window //p") || return 1
    if [[ $1 == pads ]]; then ((window_width == 650)); else ((window_width == 1365 || window_width == 1366)); fi
}

# cell_corner ROW COLUMN: sets x and y to the left top corner of a cell of the controller grid, 0 to 11 each.
cell_corner() {
    point tablecontroller 0 0
    x=$((x + $2 * cell_width - (($2 > 1) + ($2 > 10)) * (cell_width - spacer)))
    y=$((y + $1 * row_height - (($1 > 1) + ($1 > 10)) * (row_height - spacer)))
}

# point_cell ROW COLUMN: the place where the mouse takes hold of the cell.
point_cell() {
    cell_corner "$1" "$2"
    x=$((x + hold_x))
    y=$((y + hold_y))
}

# cell_is ROW COLUMN COLOR: whether the cell's ground, in the plain strip at its right side, has the colour.
cell_is() {
    local x y
    cell_corner "$1" "$2"
    color_is "$((x + cell_width - 4))" "$((y + 3))" "$3"
}

# drag_to_cell LISTROW ROW COLUMN: from the n-th row of the Live Buttons list onto a cell of the controller grid.
drag_to_cell() {
    local x y
    point_button "$1"
    xdotool mousemove "$x" "$y"
    point_cell "$2" "$3"
    drag_to "$x" "$y"
}

# drag_cell ROW COLUMN ROW COLUMN: from a cell of the controller grid onto another.
drag_cell() {
    local x y
    point_cell "$1" "$2"
    xdotool mousemove "$x" "$y"
    point_cell "$3" "$4"
    drag_to "$x" "$y"
}

# select_cells ROW COLUMN...: clicks the first cell and adds the others with Ctrl.
select_cells() {
    local x y
    point_cell "$1" "$2"
    xdotool mousemove "$x" "$y" click 1
    settle
    while shift 2 && (($# > 0)); do
        point_cell "$1" "$2"
        xdotool keydown ctrl mousemove "$x" "$y" click 1 keyup ctrl
        settle
        await cell_is "$1" "$2" "$color_cell_selected" || give_up "The cell $1, $2 is not selected."
    done
}

popups_are() { [[ $(other_windows | grep -c .) -eq $1 ]]; }

# cell_menu ROW COLUMN: opens the context menu of a cell of the controller grid.
cell_menu() {
    local x y
    point_cell "$1" "$2"
    xdotool mousemove "$x" "$y" click 3
    await popups_are 1 || give_up "The menu of the cell $1, $2 did not appear."
}

# click_menu POPUPS N COUNT SEPARATOR...: clicks the n-th of the COUNT entries of the context menu that is open on
# top as the POPUPS-th one. SEPARATOR are the numbers of the entries that a separator follows.
click_menu() {
    local popups=$1 n=$2 count=$3 menu_x menu_y menu_w menu_h height above=0 after
    shift 3
    await popups_are "$popups" || give_up "The menu number $popups did not appear."
    read -r _ menu_x menu_y menu_w menu_h _ < <(other_windows | tail -n 1)
    height=$(((menu_h - 2 * menu_frame - $# * menu_separator) / count))
    for after in "$@"; do ((after >= n)) || above=$((above + menu_separator)); done
    menu_y=$((menu_y + menu_frame + above + (n - 1) * height))
    await hover_menu "$menu_x" "$menu_y" "$menu_w" "$height" || give_up "Entry $n of the menu did not light up."
    xdotool click 1
}
# An entry that lights up under the mouse shows its colour in its left top corner. The mouse keeps moving in it.
hover_menu() {
    xdotool mousemove "$(($1 + $3 / 2 + RANDOM % 9))" "$(($2 + $4 / 2))"
    color_is "$(($1 + 6))" "$(($2 + 2))" "$color_menu_hover"
}

# An occupied cell offers Remove | Off Color, On Color, Blink | Set as Switch; an empty one the last alone.
menu_of_occupied=(5 1 4)

menu_closed() {
    await no_other_window || give_up "The menu did not close."
    settle
}

# set_color ROW COLUMN off|on N COUNT: the n-th colour of the device's palette of COUNT colours for the selected cells;
# the menu opens on this one of them, which holds a Live Button.
set_color() {
    local entry=2
    [[ $3 == off ]] || entry=3
    cell_menu "$1" "$2"
    click_menu 1 "$entry" "${menu_of_occupied[@]}"
    # "default" comes first, then a separator.
    click_menu 2 "$(($4 + 1))" "$(($5 + 1))" 1
    menu_closed
}

# ask_color ROW COLUMN off|on #rrggbb: the same on a device with RGB LEDs, whose menu opens the colour dialog.
ask_color() {
    local entry=2
    [[ $3 == off ]] || entry=3
    cell_menu "$1" "$2"
    click_menu 1 "$entry" "${menu_of_occupied[@]}"
    click_menu 2 2 2 1
    await_dialog "Choose a Color"
    # The mouse goes into the dialog, as it would to its buttons: a window that the mouse has not left since the menu
    # was open takes no notice of it until the next click. Alt+H leads to the edit of the HTML notation.
    xdotool mousemove "$((box_x + box_w / 2))" "$((box_y + box_h - 8))"
    xdotool key alt+h ctrl+a
    xdotool type --clearmodifiers "$4"
    xdotool key Return
    await no_other_window || give_up "The colour dialog did not close."
    focus_main
    settle
}

# toggle_blink ROW COLUMN: of the selected cells; the menu opens on this one of them, which holds a Live Button.
toggle_blink() {
    cell_menu "$1" "$2"
    click_menu 1 4 "${menu_of_occupied[@]}"
    menu_closed
}

# set_switch ROW COLUMN: makes an empty cell the switch. unset_switch ROW COLUMN: makes the switch an ordinary cell.
set_switch() {
    cell_menu "$1" "$2"
    click_menu 1 1 1
    menu_closed
    await cell_is "$1" "$2" "$color_switch_cell" || give_up "The cell $1, $2 did not become the switch."
}
unset_switch() {
    cell_menu "$1" "$2"
    click_menu 1 1 1
    menu_closed
    await cell_is_ordinary "$1" "$2" || give_up "The cell $1, $2 is still the switch."
}
cell_is_ordinary() { ! cell_is "$1" "$2" "$color_switch_cell"; }

# await_dialog TITLE: waits for the window of this title beside the main one and gives it the keyboard.
await_dialog() {
    await dialog_is "$1" || give_up "The dialog \"$1\" did not appear."
    await focus_window "$box_id" || give_up "The dialog \"$1\" did not take the keyboard."
}
dialog_is() { find_box && [[ $box_title == "$1" ]]; }
window_is_gone() { ! other_windows | grep -q "^$1 "; }

# file_menu N: the n-th command of the File menu: Load DMX Show, New Project, Load Project, Save Project, Export,
# About, Exit.
file_menu() {
    local i
    xdotool mousemove "$((mouse_left + 15))" "$((mouse_top - 10))" click 1
    await_box "The File menu"
    for ((i = 0; i < $1; ++i)); do xdotool key Down; done
    xdotool key Return
    await window_is_gone "$box_id" || give_up "The File menu did not close."
}

# type_file TITLE PATH: the path typed into the file dialog of this title.
type_file() {
    await_dialog "$1"
    xdotool type --clearmodifiers "$2"
    xdotool key Return
    await window_is_gone "$box_id" || give_up "The dialog \"$1\" did not close."
}

# project_path NAME: the file that a project of this name is kept in.
project_path() { say "$mouse_home/Documents/Lumipad/projects/$1.os2l"; }

# save_project NAME [overwrite]: saves the shown side under the name; with overwrite a file is there and gives way.
save_project() {
    file_menu 4
    type_file "Save your Lumipad Project" "$(project_path "$1")"
    allow_overwrite "${2:-}"
    await_box "The message that the project is saved"
    answer_box 1
    [[ -s $(project_path "$1") ]] || give_up "The project $1 was not saved."
}

# allow_overwrite [overwrite]: with the word, answers the question whether to overwrite with Yes, the left button.
allow_overwrite() {
    [[ ${1:-} == overwrite ]] || return 0
    await_box "The question whether to overwrite"
    await find_box_button 2 || give_up "The question has no two buttons."
    click_box_button 1
}

# load_project NAME pads|midi [replace]: loads the project and waits for its side; with replace the pads are not
# empty, and the question whether to give them up is answered with Yes, the left of three buttons.
load_project() {
    file_menu 3
    if [[ ${3:-} == replace ]]; then
        await_box "The question whether to load a project"
        await find_box_button 3 || give_up "The question has no three buttons."
        click_box_button 1
    fi
    type_file "Select a Lumipad Project" "$(project_path "$1")"
    focus_main
    await width_fits "$2" || give_up "The project $1 did not show the side of $2."
    settle
}

# click_box_button N: as answer_box, where another window follows the box.
click_box_button() {
    local button_x button_y button_w button_h id
    mouse_idle
    await find_box_button "$1" || give_up "The box has no button number $1."
    id=$box_id
    xdotool mousemove "$((button_x + button_w / 2))" "$((button_y + button_h / 2))" click 1
    await window_is_gone "$id" || give_up "The box did not close."
}

# mapper_path DEVICE NAME: the file that the mapping of this name for the device is exported to.
mapper_path() { say "$mouse_home/Documents/VirtualDJ/Mappers/$1 - $2 mapping.xml"; }

# export_mapper DEVICE NAME [overwrite]: clicks Export on the MIDI side, where the name is filled in, and answers the
# message.
export_mapper() {
    click pushButton_2
    allow_overwrite "${3:-}"
    await_box "The message that the mapping is created"
    answer_box 1
    [[ -s $(mapper_path "$1" "$2") ]] || give_up "The mapping $2 for $1 was not written."
}

# fill_edit NAME TEXT: clicks the line edit and replaces its text.
fill_edit() {
    local x y
    focus_main
    click "$1"
    point "$1" 20 0
    await color_is "$x" "$y" "$color_edit_focus" || give_up "$1 did not take the keyboard."
    xdotool key ctrl+a
    xdotool type --clearmodifiers "$2"
}

# edit_pad N TEXT: double-clicks an occupied pad, replaces its text and ends with Enter.
edit_pad() {
    local x y
    focus_main
    point_pad "$1"
    xdotool mousemove "$x" "$y" click --repeat 2 --delay 20 1
    xdotool key ctrl+a
    xdotool type --clearmodifiers "$2"
    xdotool key Return
    settle
}

# request_close: what a click on the close box of the window does.
request_close() { "$mouse_screen" close "$mouse_window"; }

# await_end CODE: waits until the program has ended, which must be with this exit code.
await_end() {
    local end=$((SECONDS + patience)) exit_code=0
    while kill -0 "$mouse_app_pid" 2>/dev/null; do
        ((SECONDS < end)) || give_up "The program did not end."
        sleep "$poll_seconds"
    done
    wait "$mouse_app_pid" || exit_code=$?
    mouse_app_pid=
    [[ $exit_code -eq $1 ]] || give_up "The program ended with $exit_code instead of $1."
}
