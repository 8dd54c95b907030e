#!/usr/bin/env bash
# Runs the README's two commands as a new user would, in a minimal Debian 12
# root, on a clean clone of the committed HEAD (uncommitted edits are not seen).
#   scripts/check-fresh-root.sh DIR [--fresh]
# DIR is made with debootstrap when it is missing or with --fresh. Needs root
# and debootstrap on the host. CHECK_JOBS (default 2) caps the build jobs.
set -euo pipefail
usage() { echo "usage: $0 DIR [--fresh]" >&2; exit 2; }
[ $# -ge 1 ] || usage
root="$(realpath -m "$1")"; fresh=0
case "${2:-}" in "") ;; --fresh) fresh=1 ;; *) usage ;; esac
[ "$root" != / ] || usage
src="$(cd "$(dirname "$0")/.." && pwd)"
rev="$(git -C "$src" rev-parse HEAD)"

mounts=(proc sys dev dev/pts)
unmount_all() {
    local i
    for ((i=${#mounts[@]}-1; i>=0; i--)); do
        if mountpoint -q "$root/${mounts[$i]}"; then umount "$root/${mounts[$i]}"; fi
    done
}
trap unmount_all EXIT
trap 'exit 130' INT TERM

# The Debian mirror the host's apt uses, so the root installs the same way.
mirror() {
    local m
    m="$(grep -hs '^URIs:' /etc/apt/sources.list.d/*.sources | awk '$2 ~ /debian\/?$/ {print $2; exit}')"
    [ -n "$m" ] || m="$(grep -hs '^deb ' /etc/apt/sources.list | awk '$2 ~ /debian\/?$/ {print $2; exit}')"
    echo "${m:-http://deb.debian.org/debian}"
}

if [ $fresh -eq 1 ] || [ ! -x "$root/bin/bash" ]; then
    unmount_all
    rm -rf --one-file-system "$root"
    echo "== debootstrap minbase bookworm into $root from $(mirror)"
    debootstrap --variant=minbase bookworm "$root" "$(mirror)" >"$root.debootstrap.log" 2>&1 \
        || { tail -20 "$root.debootstrap.log"; exit 1; }
fi

mount -t proc proc "$root/proc"
mount --bind /sys "$root/sys"
mount --bind /dev "$root/dev"
mount --bind /dev/pts "$root/dev/pts"
cp -L /etc/resolv.conf "$root/etc/resolv.conf"
# No service starts inside a chroot.
printf '#!/bin/sh\nexit 101\n' >"$root/usr/sbin/policy-rc.d"; chmod +x "$root/usr/sbin/policy-rc.d"

echo "== clean clone of $rev into $root/root/zelCtrl"
rm -rf "$root/root/zelCtrl"
git clone -q --no-hardlinks "$src" "$root/root/zelCtrl"
git -C "$root/root/zelCtrl" checkout -q --detach "$rev"

log="$root/root/check-fresh-root.log"
echo "== in the root: bash scripts/gallery.sh && bash scripts/test.sh (log: $log)"
start=$SECONDS
set +e
chroot "$root" /usr/bin/env -i HOME=/root TERM=dumb LANG=C.UTF-8 \
    PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
    CMAKE_BUILD_PARALLEL_LEVEL="${CHECK_JOBS:-2}" \
    bash -c 'cd /root/zelCtrl && bash scripts/gallery.sh && bash scripts/test.sh' >"$log" 2>&1
rc=$?
set -e
secs=$((SECONDS - start))

shots=$(find "$root/root/zelCtrl/gallery-shots" -name '*.png' 2>/dev/null | wc -l)
echo "== exit $rc after $((secs / 60)) min $((secs % 60)) s; gallery PNGs: $shots"
grep -E '^[0-9]+% tests passed|Test +#[0-9]+: tst_designer|tests? failed' "$log" || tail -40 "$log"
[ $rc -eq 0 ] && [ "$shots" -gt 0 ] && grep -qE 'tst_designer .*Passed' "$log"
