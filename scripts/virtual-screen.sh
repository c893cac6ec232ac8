# Sourced: a virtual screen with a window manager (without one, the first typed text is lost), and
# waiting for windows by their titles.

# start_virtual_screen WIDTH HEIGHT : sets DISPLAY; everything ends with the calling script. A start
# that fails is tried twice more.
start_virtual_screen() {
    trap stop_virtual_screen EXIT
    local attempt
    for attempt in 1 2 3; do
        ! try_virtual_screen "$1" "$2" || return 0
        stop_virtual_screen
    done
    exit 1
}

# Without -noreset the server resets when its only client leaves, and takes along whoever is just
# coming: the first look for the window manager would end it.
try_virtual_screen() {
    local number_file
    number_file=$(mktemp)
    Xvfb -displayfd 3 -screen 0 "$1x$2x24" -noreset -nolisten tcp >/dev/null 2>&1 3>"$number_file" &
    virtual_screen_pid=$!
    wait_until 20 test -s "$number_file" || { echo "The virtual screen does not start." >&2; return 1; }
    DISPLAY=:$(cat "$number_file")
    export DISPLAY
    rm -f "$number_file"
    unset WAYLAND_DISPLAY
    openbox >/dev/null 2>&1 &
    window_manager_pid=$!
    wait_until 20 sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q "window id"' ||
        { echo "The window manager does not start." >&2; return 1; }
}

stop_virtual_screen() {
    [ -z "${program_pid:-}" ] || kill "$program_pid" 2>/dev/null
    [ -z "${window_manager_pid:-}" ] || kill "$window_manager_pid" 2>/dev/null
    [ -z "${virtual_screen_pid:-}" ] || kill "$virtual_screen_pid" 2>/dev/null
    wait 2>/dev/null || true
    program_pid= window_manager_pid= virtual_screen_pid=
}

# wait_until SECONDS COMMAND... : true as soon as the command succeeds.
wait_until() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.1
    done
}

# visible_window TITLE_PATTERN : prints the id of the visible window with that title.
visible_window() {
    xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1 | grep .
}

# wait_for_window SECONDS TITLE_PATTERN : prints its id, or fails.
wait_for_window() {
    wait_until "$1" sh -c "xdotool search --onlyvisible --name '$2' >/dev/null 2>&1" &&
        visible_window "$2"
}

# save_picture FILE : the whole screen.
save_picture() {
    import -window root "$1"
}
