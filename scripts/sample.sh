#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The sample site of ./run, and whether an operator has worked on it since the road was walked. Sourced, not run.
# What was walked stands in a record beside the site: the last line of the walk, and a sum of every file.

sums_of() { # SITE: a line for every file below it
    (cd "$1" && find . -type f -print0 | LC_ALL=C sort -z | xargs -0 -r sha256sum)
}

record_site() { # SITE LASTLINE
    {
        printf '%s\n' "$2"
        sums_of "$1"
    } >"$1.record"
}

# A site whose walk did not come to its end has no record, and nothing to keep.
site_is_edited() { # SITE
    [ -d "$1" ] && [ -r "$1.record" ] && [ "$(sums_of "$1")" != "$(tail -n +2 "$1.record")" ]
}

last_line_of() { # SITE
    head -n 1 "$1.record"
}

# A field book that is to be walked; one that lies on the site is copied aside, since the site goes.
book_off_site() { # SITE BOOK
    case $(realpath -- "$2") in
    "$(realpath -m -- "$1")"/*)
        local aside
        aside=$(mktemp -d)
        cp -- "$2" "$aside/"
        printf '%s\n' "$aside/$(basename -- "$2")"
        ;;
    *) printf '%s\n' "$2" ;;
    esac
}

# Takes the site away; the one that was edited last is kept as SITE.old.
put_aside() { # SITE
    if site_is_edited "$1"; then
        rm -rf "$1.old"
        mv "$1" "$1.old"
    fi
    rm -rf "$1" "$1.record"
}
