# The Debian packages that the project needs, by wish. Sourced by the scripts in the top folder.
BUILD_PACKAGES="g++ cmake ninja-build ccache qt6-base-dev qt6-base-dev-tools libgl-dev"
BUILD_PACKAGES="$BUILD_PACKAGES qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools"
BUILD_PACKAGES="$BUILD_PACKAGES qt6-multimedia-dev"
BUILD_PACKAGES="$BUILD_PACKAGES libcli11-dev nlohmann-json3-dev zlib1g-dev"
RUN_PACKAGES="qt6-qpa-plugins libqt6svg6 qt6-wayland fonts-dejavu-core"
# Playing: without GStreamer's base and good plug-ins Qt's sound system ends the program.
RUN_PACKAGES="$RUN_PACKAGES libqt6multimedia6 gstreamer1.0-plugins-base gstreamer1.0-plugins-good"
TEST_PACKAGES="libgtest-dev python3 lame ffmpeg id3v2 eyed3 python3-mutagen attr zsh man-db"
PACKAGE_PACKAGES="dpkg-dev file lintian appstream desktop-file-utils man-db"
FUZZ_PACKAGES="clang"
CHECK_PACKAGES="clang clang-tidy cppcheck gcovr"
# Beside the suite: file systems to be mounted by test-filesystems.sh and test-powercut.sh.
FILE_SYSTEM_PACKAGES="e2fsprogs xfsprogs btrfs-progs exfat-fuse exfatprogs ntfs-3g dosfstools"
