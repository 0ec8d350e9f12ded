# shellcheck shell=bash
# What both trials begin with: the packages that they take, a display of their own, and a Windows there. Sourced, by who stands in the root of
# the project and has set own_script (tests/system/gui-lib.sh).
# shellcheck source=tools/lib.sh
. tools/lib.sh
# Before gui-lib.sh, which leaves its user no right to.
install_packages "${build_packages[@]}" "${test_packages[@]}" "${check_packages[@]}" "${windows_packages[@]}" \
    "${windows_setup_packages[@]}" "${windows_trial_packages[@]}"
# shellcheck source=tests/system/gui-lib.sh
. tests/system/gui-lib.sh
# shellcheck source=packaging/windows/wine-lib.sh
. packaging/windows/wine-lib.sh
