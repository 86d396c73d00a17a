#!/usr/bin/env bash
# Draws every window on a screen of 1024 by 600 in texts that are half as long again: one that is not
# translated, or has no room, fails.
# usage: pseudo_screens.sh PROGRAMS FOLDER
set -euo pipefail
cd "$(dirname "$0")/../.."
programs=$1 demo=$2
source demo/set_up.sh
trap end_demo EXIT
rm -rf "$demo"
make_demo
mkdir "$demo/pictures"
start_service
"$programs/tollbrook-screens" --config "$demo/config" --out "$demo/pictures" --language pseudo --small
