#!/usr/bin/env bash
# Runs the connection manager: in a window when there is a display, under
# Xvfb otherwise.
set -euo pipefail
build=${1:-build}
bin="$build/bin/connection-manager"
if [ -n "${DISPLAY:-}" ]; then
  exec "$bin"
else
  echo "No display: running under Xvfb."
  exec xvfb-run -a -s "-screen 0 1280x1024x24" "$bin"
fi
