#!/usr/bin/env bash
# Runs the connection manager on the default pack: in a window when there
# is a display; otherwise under Xvfb in tour mode, which clicks through the
# window, saves screenshots of the whole screen and exits.
set -euo pipefail
build=${1:-build}
bin="$build/bin/connection-manager"
if [ -n "${DISPLAY:-}" ]; then
  exec "$bin"
fi
shots="$build/demo-screenshots"
rm -rf "$shots"
echo "No display: running the connection manager under Xvfb in tour mode."
xvfb-run -a -s "-screen 0 1280x1024x24" "$bin" --tour "$shots"
echo "Screenshots of the demo are in $shots/"
