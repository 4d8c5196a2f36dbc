#!/usr/bin/env bash
# The recipes of docs/fleet.md: eight disks are made, one of them damaged and one with nothing planted,
# scanned through GNU parallel, and merged into one page. The tasks of the Slurm array run one by one.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
program=$project/out/linux/scourwell
work=$project/build/fleet
disks=8
export LC_ALL=C.UTF-8 PARALLEL_HOME=$work/.parallel XDG_DATA_HOME=$work/data PATH=$project/out/linux:$PATH

fail() { echo "fleet: $*"; exit 1; }

make_disks() {
    local number
    for number in $(seq "$disks"); do
        "$project/demo/make-disk" "$work/disks/pc-$number"
        echo "$work/disks/pc-$number" >> "$work/disks.txt"
    done
    echo "no hive at all" > "$work/disks/pc-7/WINDOWS/system32/config/SOFTWARE"
    rm -r "$work/disks/pc-8/WINDOWS"
}

# recipe HEADING NUMBER: the so-manyth indented block below a heading of the page.
recipe() {
    awk -v heading="## $1" -v wanted="$2" '
        /^## / { here = $0 == heading; next }
        here && /^    / { if (!inside) block++; inside = 1; if (block == wanted) print substr($0, 5); next }
        { inside = 0 }' "$project/docs/fleet.md"
}

# planted FILE: whether the lines are those of an untouched disk.
planted() { "$project/demo/check-disk" <(grep -v '"spy": "Other".*someone@' "$1") "$work/disks/pc-1.planted.tsv" > /dev/null; }

check_lines() {
    local number
    for number in 1 2 3 4 5 6; do
        planted "lines/pc-$number.jsonl" || fail "pc-$number was not scanned as it was planted"
    done
    [ ! -e lines/pc-8.jsonl ] || fail "a disk without Windows counts as scanned"
    [ "$(cut -f 7 jobs.tsv | sort | tr '\n' ' ')" = "1 1 1 1 1 1 3 3 Exitval " ] || fail "exit codes: $(cut -f 7 jobs.tsv)"
}

check_page() {
    local status=0
    scourwell report --merge lines/*.jsonl --html all.html 2> said.txt || status=$?
    [ "$status" = 3 ] || fail "a page with a damaged disk ends with $status"
    grep -q pc-7 said.txt || fail "the damaged disk is not told"
    [ "$(grep -c '<tr><td class="name">lines/pc-[1-6].jsonl</td><td class="word">[A-Z]' all.html)" = 102 ] || fail "the page has other rows"
    python3 -c '
import html.parser, sys
class Page(html.parser.HTMLParser):
    depth = 0
    def handle_starttag(self, tag, _): self.depth += tag not in ("meta", "rect")
    def handle_endtag(self, tag): self.depth -= tag != "rect"
page = Page()
page.feed(open("all.html", encoding="utf-8").read())
sys.exit(page.depth)' || fail "the elements of the page do not close"
}

check_array() {
    local number
    recipe "A Slurm array" 1 > array.sh
    rm -r lines
    mkdir lines
    for number in 1 2 7 8 1; do
        SLURM_ARRAY_TASK_ID=$number bash array.sh 2> /dev/null && continue
        [ "$number" = 8 ] || fail "task $number of the array failed"
    done
    [ "$(ls lines | tr '\n' ' ')" = "1.jsonl 2.jsonl 7.jsonl 8.jsonl.part " ] || fail "the array left: $(ls lines)"
}

rm -rf "$work"
mkdir -p "$work/disks" "$PARALLEL_HOME"
touch "$PARALLEL_HOME/will-cite"
cd "$work"
make_disks
recipe "One machine with many disks" 1 | grep -v '^scourwell report' > one-machine.sh
bash one-machine.sh 2> /dev/null || true                        # its code is the number of disks that are not clean
check_lines
check_page
check_array
echo "eight disks: fine"
