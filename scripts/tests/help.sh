#!/usr/bin/env bash
# The help: every page well formed, reachable and compiled; every link and anchor leads somewhere; every
# window of the program has its page.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
work=$project/build/test-help
rm -rf "$work"
mkdir -p "$work"

python3 "$project/scripts/check-help" "$project/help" "$project/shell/help_topics.cpp"

# The check itself: each of these faults must be noticed. SCRIPT edits copies of the sources.
refuses() {
    local complaint=$1 script=$2 output
    rm -rf "$work/bad"
    cp -r "$project/help" "$work/bad"
    cp "$project/shell/help_topics.cpp" "$work/bad/topics.cpp"
    (cd "$work/bad" && eval "$script")
    if output=$(python3 "$project/scripts/check-help" "$work/bad" "$work/bad/topics.cpp" 2>&1); then
        echo "help: accepted a help with: $complaint"
        exit 1
    elif [[ $output != *"$complaint"* ]]; then
        echo "help: did not say \"$complaint\" but: $output"
        exit 1
    fi
}

refuses 'scan.html: no file nothing.html' "sed -i 's/results.html/nothing.html/' scan.html"
refuses 'scan.html: no anchor results.html#none' "sed -i 's/results.html/&#none/' scan.html"
refuses 'help.hhk: no anchor' "sed -i 's/results.html#rows/results.html#none/' help.hhk"
refuses 'log.html: not in the contents' "sed -i 's/log.html/scan.html/' help.hhc"
refuses 'log.html: not in [FILES]' "sed -i '/^log.html/d' help.hhp"
refuses 'more.html: not in [FILES]' "cp log.html more.html"
refuses 'log.html: </b> closes <p>' "sed -i 's/<b>Save/Save/' log.html"
refuses 'log.html: </body> closes <ul>' "sed -i 's,</ul>,,' log.html"
refuses 'log.html: <blink> is not in HTML 4.01' "sed -i 's,<h2,<blink></blink>&,' log.html"
refuses 'log.html: no alt' "sed -i 's,<h2,<img src=\"help.hhp\">&,' log.html"
refuses 'log.html: the id viewer stands twice' "sed -i 's/id=\"file\"/id=\"viewer\"/' log.html"
refuses 'frmLog: no page gone.html' "sed -i 's/log.html/gone.html/' topics.cpp"
refuses 'frmLog: log.html is number 1008 in the project, not 1' "sed -i 's/1008/1/' topics.cpp"

# The compiled file holds every page as it stands, and nothing of this machine.
"$project/scripts/make-help" "$project/help" "$work/made"
(cd "$work" && chmls -n -p list made/help.chm > list.txt 2> /dev/null)
mkdir "$work/all"
chmls extractall "$work/made/help.chm" "$work/all" > /dev/null 2>&1
for page in "$project"/help/*.html "$project"/help/*.css; do
    name=$(basename "$page")
    grep -qx "/$name" "$work/list.txt" || { echo "help: help.chm lacks $name"; exit 1; }
    cmp "$page" "$work/all/$name"
done
! grep -rlF "$project" "$work/all" || { echo "help: help.chm names the folder it was made in"; exit 1; }

# A page that the project lacks, or that is lost, ends the build.
cp -r "$project/help" "$work/lost"
rm "$work/lost/log.html"
! "$project/scripts/make-help" "$work/lost" "$work/none" > /dev/null 2>&1 || { echo "help: compiled without a page"; exit 1; }

# What is shipped beside the program is the same.
if [ -d "$project/out/Scourwell/Help" ]; then
    for page in "$project"/help/*.html "$project"/help/*.css; do
        cmp "$page" "$project/out/Scourwell/Help/$(basename "$page")"
    done
    [ -s "$project/out/Scourwell/Help/help.chm" ] || { echo "help: no help.chm in the program folder"; exit 1; }
fi
