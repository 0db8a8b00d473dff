#!/usr/bin/env bash
# qt-api.sh PROGRAM ALLOWED INFO: the program calls no Qt function that Qt 5.3 lacks, going by the
# version in which each symbol appeared: Debian's symbols files in the folder INFO. ALLOWED names the
# symbols that the headers of today's Qt call behind the back of 5.3 code. Macros, enumerations and
# inline functions leave no symbol and are not seen.
set -euo pipefail

newer=$(nm -D --undefined-only "$1" | awk '
    FILENAME == "-" { if ($NF ~ /@Qt_/ && $NF !~ /^qt_version_tag@/) used[$NF]; next }
    $1 in used {
        split($2, version, ".")
        if ($3 == 1) print $1, "private"
        else if (version[1] == 5 && version[2] > 3) print $1, $2
        delete used[$1]
    }
    END { for (symbol in used) print symbol, "unknown" }' - "$3"/libqt5{core5a,gui5,widgets5}*.symbols |
    c++filt | sort)
diff <(grep -v -e '^#' -e '^$' "$2" | sort) <(sed 's/@Qt_[^ ]*//' <<<"$newer") && exit
echo "Above: < is allowed and no longer needed, > is newer than Qt 5.3 and not allowed" >&2
exit 1
