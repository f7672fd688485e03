# Sourced by what looks at pictures of windows.
#
#   has_window COLOURS    whether a picture of so many colours (identify -format %k) shows a window: it has
#                         its frame, grounds, texts and icons; what has fewer was never painted

has_window() { [ "${1:-0}" -ge 8 ]; }
