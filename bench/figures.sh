# Sourced: what the programs of $build cost. Every row is a figure, its values for the program, for
# the floor and for the empty window, separated by tabs; or for the window and for a bare watcher.
# It needs $unit, a head unit's folder, and $scratch.

# A software screen of the unit's size that needs no server; and the same hashes in every run.
export QT_QPA_PLATFORM=vnc:size=800x480:port=0 QT_HASH_SEED=0

samples=200

# of_each NAME COMMAND...: a row of what the command prints for every program.
of_each() {
    local row=$1 program
    shift
    for program in velmora floor empty; do
        row+=$'\t'$("$@" $program)
    done
    echo "$row"
}

# in_unit COMMAND...: its output is kept for the case that it fails.
in_unit() {
    (cd "$unit" && exec "$@") >"$scratch/output" 2>&1 || {
        tail -n 20 "$scratch/output" >&2
        exit 1
    }
}

to_first_frame() {
    LD_PRELOAD=$build/bench/libframes.so in_unit "$@"
}

start_instructions() {
    to_first_frame valgrind --tool=callgrind --callgrind-out-file="$scratch/$1.callgrind" \
        "$build/bin/$1"
    sed -n 's/^totals: //p' "$scratch/$1.callgrind"
}

# files_opened PROGRAM: leaves the trace for bytes_read.
files_opened() {
    in_unit strace -f -E LD_PRELOAD="$build/bench/libframes.so" -o "$scratch/$1.strace" \
        -e trace=open,openat,read,pread64 "$build/bin/$1"
    grep -cE 'open(at)?\(.* = [0-9]+$' "$scratch/$1.strace"
}

bytes_read() {
    awk '/ p?read(64)?\(.* = [0-9]+$/ { bytes += $NF } END { print bytes }' "$scratch/$1.strace"
}

executable_size() {
    stat -c %s "$build/bin/$1"
}

# Runs the programs in turn, so that what else the machine does meets all of them.
report_starts() {
    local round program
    for round in $(seq 15); do
        for program in velmora floor empty; do
            FRAME_REPORT=$scratch/$program.$round.report to_first_frame "$build/bin/$program"
        done
    done
}

# median_of FIELD PROGRAM: over the reports of report_starts.
median_of() {
    awk -v field="$1:" '$1 == field { print $2 }' "$scratch/$2".*.report | sort -n | sed -n 8p
}

# profile FUNCTION window|bare [STORED]
profile() {
    in_unit valgrind --tool=callgrind --toggle-collect="$1" \
        --callgrind-out-file="$scratch/$1.$2.callgrind" "$build/bin/answer" "$2" $samples "${3:-0}"
    [ "$(instructions_of "$1" "$2")" -gt 0 ] || {
        echo "The profile does not know $1()" >&2
        exit 1
    }
}

instructions_of() {
    sed -n 's/^totals: //p' "$scratch/$1.$2.callgrind"
}

# calls_of FUNCTION window|bare NAMES: calls of functions that match, below the profiled one.
calls_of() {
    awk -v names="$3" '
        /^c?fn=/ {
            id = name = $0
            sub(/^c?fn=/, "", id)
            sub(/ .*/, "", id)
            if (sub(/^[^ ]* /, "", name))
                known[id] = name
            callee = known[id]
        }
        /^calls=/ && callee ~ names {
            split($0, part, /[= ]/)
            calls += part[2]
        }
        END { print calls + 0 }' "$scratch/$1.$2.callgrind"
}

# system_calls window|bare SAMPLES
system_calls() {
    in_unit strace -f -c -o "$scratch/strace" "$build/bin/answer" "$1" "$2"
    awk '$NF == "total" { print $4 }' "$scratch/strace"
}

# per_sample TOTAL...: one row's values.
per_sample() {
    local total
    for total; do
        printf '\t%s' $(((total + samples / 2) / samples))
    done
    echo
}

allocators='^(malloc|calloc|realloc)$'
styling='StyleSheet|QCss'

# The writer's own call in every sample is not the window's.
sample_figures() {
    local target function
    for target in window bare; do
        for function in takeSamples takeRelease; do
            profile $function $target
        done
    done
    echo "instructions of a sample$(per_sample "$(instructions_of takeSamples window)" \
        "$(instructions_of takeSamples bare)")"
    echo "allocations of a sample$(per_sample "$(calls_of takeSamples window "$allocators")" \
        "$(calls_of takeSamples bare "$allocators")")"
    echo "system calls of a sample$(per_sample $((
        $(system_calls window $((2 * samples))) - $(system_calls window $samples) - samples)) $((
        $(system_calls bare $((2 * samples))) - $(system_calls bare $samples) - samples)))"
    echo "instructions of a release"$'\t'"$(instructions_of takeRelease window)"$'\t'"$(
        instructions_of takeRelease bare)"
    style_figures takeSamples "style sheet calls of all samples"
    style_figures takeRelease "style sheet calls of a release"
}

style_figures() {
    echo "$2"$'\t'"$(calls_of "$1" window "$styling")"$'\t'"$(calls_of "$1" bare "$styling")"
}
