#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# ./run keeps what an operator has done on the sample site: SampleSite_test.sh SOURCEFOLDER
set -euo pipefail
source "$1/scripts/sample.sh"

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
site=$folder/sample

fail() {
    echo "SampleSite_test: $*" >&2
    exit 1
}
new_site() {
    mkdir -p "$site/drives/d:/TARVEX"
    echo data >"$site/drives/d:/TARVEX/A FILE.TXT"
}
walked() {
    new_site
    record_site "$site" "ROAD COMPLETE: 102 observations, 12 points, m0 0.8642"
}

site_is_edited "$site" && fail "no site is taken for an edited one"
new_site
site_is_edited "$site" && fail "a site whose walk was broken off is kept"
walked
site_is_edited "$site" && fail "a site that nobody touched is kept"
[ "$(last_line_of "$site")" = "ROAD COMPLETE: 102 observations, 12 points, m0 0.8642" ] || fail "last line"

echo more >>"$site/drives/d:/TARVEX/A FILE.TXT"
site_is_edited "$site" || fail "a changed file is not noticed"
put_aside "$site"
[ ! -e "$site" ] && [ ! -e "$site.record" ] || fail "the site is still there"
grep -q more "$site.old/drives/d:/TARVEX/A FILE.TXT" || fail "the edited site is lost"

walked
echo new >"$site/drives/d:/NEW.TXT"
site_is_edited "$site" || fail "a new file is not noticed"
rm "$site/drives/d:/NEW.TXT" "$site/drives/d:/TARVEX/A FILE.TXT"
site_is_edited "$site" || fail "a file that is gone is not noticed"

walked
book=$(book_off_site "$site" "$site/drives/d:/TARVEX/A FILE.TXT")
put_aside "$site"
grep -q data "$book" && [ "$(basename "$book")" = "A FILE.TXT" ] || fail "a book of the site goes with it"
rm -r "$(dirname "$book")"
echo book >"$folder/B.GSI"
[ "$(book_off_site "$site" "$folder/B.GSI")" = "$folder/B.GSI" ] || fail "a book elsewhere is copied"
grep -q more "$site.old/drives/d:/TARVEX/A FILE.TXT" || fail "an untouched site took the place of the edited one"
echo "sample site: kept where it was edited, made anew where it was not"
