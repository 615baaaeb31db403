#!/usr/bin/env bash
# Runs an example in the working directory: run.sh PROGRAM STEPS PRELOAD. It has to end
# by itself, tidily, and have found all that it loads and draws.
set -euo pipefail

rm -f glidewing.log
LD_PRELOAD=$3 "$1" "$2"
tail -n 1 glidewing.log | grep -q 'LogManager is shutting down'
# A machine may be without a sound card; no other complaint is all right.
if grep -E 'CRITICAL|ERROR|WARNING' glidewing.log | grep -v 'No playback device'; then
    exit 1
fi
