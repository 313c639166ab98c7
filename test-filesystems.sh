#!/usr/bin/env bash
# Tries the program on file systems of every kind that this machine can mount: small ones in files of
# their own in a temporary folder, which is removed afterwards. Mounting needs root. The last line
# says which were tried and which could not be.
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=tools/packages.sh
. tools/packages.sh
# shellcheck source=tools/setup.sh
. tools/setup.sh
# shellcheck disable=SC2086
plm_install $BUILD_PACKAGES $RUN_PACKAGES $TEST_PACKAGES $FILE_SYSTEM_PACKAGES

preset=${PRESET:-dev}
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" --target filesystems_test pellmore-cli

work=$(mktemp -d "${TMPDIR:-/tmp}/plm-filesystems-XXXXXX")
loops=""
clean_up() {
    local kind device
    for kind in $kinds; do
        mountpoint -q "$work/$kind" && umount "$work/$kind"
    done
    for device in $loops; do losetup -d "$device"; done
    rm -rf --one-file-system "$work"
}
trap clean_up EXIT

# An empty image of 8 MB: room for a few songs, and soon full.
image() {
    truncate -s 8M "$work/$1.img"
}
loop_device() {
    local device
    device=$(losetup -f --show "$work/$1.img") || return 1
    loops="$loops $device"
    printf '%s' "$device" >"$work/$1.loop"
}

mount_tmpfs() { mount -t tmpfs -o size=8m tmpfs "$work/tmpfs"; }
mount_ext4_folding() {
    image ext4_folding
    mkfs.ext4 -q -O casefold -E encoding=utf8 "$work/ext4_folding.img"
    mount -o loop "$work/ext4_folding.img" "$work/ext4_folding"
    rmdir "$work/ext4_folding/lost+found"
    chattr +F "$work/ext4_folding"
}
mount_exfat() {
    image exfat
    mkfs.exfat "$work/exfat.img"
    loop_device exfat
    mount.exfat-fuse "$(cat "$work/exfat.loop")" "$work/exfat"
}
mount_ntfs() {
    image ntfs
    mkntfs -F -Q "$work/ntfs.img"
    ntfs-3g -o windows_names "$work/ntfs.img" "$work/ntfs"
}
mount_ntfs_folding() {
    image ntfs_folding
    mkntfs -F -Q "$work/ntfs_folding.img"
    lowntfs-3g -o ignore_case,windows_names "$work/ntfs_folding.img" "$work/ntfs_folding"
}
mount_vfat() {
    image vfat
    mkfs.vfat "$work/vfat.img"
    mount -o loop,iocharset=utf8 -t vfat "$work/vfat.img" "$work/vfat"
}

kinds="tmpfs ext4_folding exfat ntfs ntfs_folding vfat"
tried="" refused="" systems=""
for kind in $kinds; do
    mkdir "$work/$kind"
    # Not in a condition, where a step that fails would not end the steps.
    set +e
    (set -e; "mount_$kind") >"$work/$kind.log" 2>&1
    status=$?
    set -e
    # The subshell could not hand the device over.
    [ -e "$work/$kind.loop" ] && loops="$loops $(cat "$work/$kind.loop")"
    if [ $status -eq 0 ] && mountpoint -q "$work/$kind"; then
        tried="$tried $kind"
        systems="$systems$kind=$work/$kind"$'\n'
    else
        refused="$refused $kind"
        sed "s/^/$kind: /" "$work/$kind.log" >&2
    fi
done

status=1
if [ -n "$tried" ]; then
    set +e
    PLM_FILE_SYSTEMS=$systems "build/$preset/tests/filesystems_test" --gtest_brief=1
    status=$?
    set -e
fi
printf 'Tried:%s. Could not be mounted here:%s.\n' "${tried:- none}" "${refused:- none}"
exit $status
