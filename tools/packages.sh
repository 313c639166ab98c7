# The Debian packages that the project needs, by wish. Sourced by run.sh and test.sh.
BUILD_PACKAGES="g++ cmake ninja-build ccache qt6-base-dev qt6-base-dev-tools libgl-dev"
RUN_PACKAGES="qt6-qpa-plugins libqt6svg6 qt6-wayland fonts-dejavu-core"
TEST_PACKAGES="libgtest-dev python3 lame ffmpeg id3v2 eyed3 attr"
