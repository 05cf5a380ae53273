#!/usr/bin/env bash
# Runs the connection manager on the default pack: in a window when there
# is a display; otherwise (or with --tour) under Xvfb in tour mode, which
# clicks through the window, saves a screenshot of the whole screen per
# screen, named after it, writes index.html beside them, and exits.
#   run-demo.sh [BUILD_DIR] [--tour]
# SCREEN (default 1280x1024x24) sets the size of the Xvfb screen; the
# window is centred on it.
set -euo pipefail
build=${1:-build}
bin="$build/bin/connection-manager"
if [ -n "${DISPLAY:-}" ] && [ "${2:-}" != "--tour" ]; then
  exec "$bin"
fi
shots="$build/demo-screenshots"
rm -rf "$shots"
echo "Running the connection manager under Xvfb in tour mode."
xvfb-run -a -s "-screen 0 ${SCREEN:-1280x1024x24}" "$bin" --tour "$shots"
echo "Screenshots of the demo are in $shots/ (open $shots/index.html)"
