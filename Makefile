# Two commands for Debian 12, as root or as a user with sudo; ./demo and ./check install make before:
#
#   make demo    builds the program and draws the examples into out/, where index.html shows them
#   make check   builds it twice, optimised and with the sanitizers, and runs the tests of both
#   make form    tells whether the code has its form, and that of pages its types
#   make lint    the same, and what an analyser finds in src/
#   make package makes the Debian packages, in build/package/packages
#
# And, as root, what has to hold before a release, which takes an hour and more:
#
#   make release-check   all of these in a bare Debian 12, and the packages tried in another one;
#                        BASE=FILE names a tar of one, which debootstrap makes otherwise
#
# All install the Debian packages that are missing. With CI=true warnings are errors, and there is
# no ccache.

# To build; to draw the same letters everywhere; to test, with readers and renderers of other hands.
BUILD_PACKAGES := cmake ninja-build g++ pkg-config \
                  qt6-base-dev qt6-svg-dev qt6-httpserver-dev qt6-websockets-dev \
                  libgl-dev libfontconfig-dev libgraphviz-dev libminizip-dev nlohmann-json3-dev \
                  zlib1g-dev libcli11-dev
PACKAGES := $(BUILD_PACKAGES) fonts-liberation python3 \
            libgtest-dev libvisio-tools libxml2-utils librsvg2-bin poppler-utils qpdf locales strace \
            python3-jsonschema pre-commit git graphviz mandoc man-db zsh fish

# To test pages where they are read. An npm that is there already may not be Debian's.
BROWSER_PACKAGES := chromium chromium-driver
NPM_PACKAGES := $(if $(shell command -v npm),,npm)

# Of the versions that Debian 12 has: another one formats otherwise.
FORM_PACKAGES := clang-format-14
LINT_PACKAGES := $(FORM_PACKAGES) clang-tidy-14

# To make Debian packages, and to try them.
PACKAGE_PACKAGES := $(BUILD_PACKAGES) dpkg-dev file git
RELEASE_PACKAGES := lintian debootstrap

SUDO := $(if $(filter-out 0,$(shell id -u)),sudo)
CCACHE := $(if $(filter true,$(CI)),,$(shell command -v ccache))
# Without a cache a whole build is what counts, and many files are compiled as one.
SETTINGS := -DORR_WERROR=$(if $(filter true,$(CI)),ON,OFF) \
            -DCMAKE_CXX_COMPILER_LAUNCHER=$(CCACHE) -DORR_UNITY=$(if $(CCACHE),OFF,ON)

.PHONY: all demo check form lint package packages release release-check release-tests asan-tests
all: release

demo: release
	examples/draw_all build/release/bin/orrlayout build/release/bin/orr out

check: release-tests asan-tests

release: packages
	cmake --preset release $(SETTINGS)
	cmake --build --preset release --target orrlayout orr

# With CI=true the slow tests are built and run in the release build only, and the sanitizers leave out
# what takes most of their time to compile: what reads or writes through null is found by that of addresses.
SKIPS_SLOW = $(filter true-asan,$(CI)-$*)
# One more than there are processors: those of pages wait most of the time.
TESTS_AT_ONCE := $(shell expr $$(nproc) + 1)
release-tests asan-tests: PACKAGES += $(BROWSER_PACKAGES) $(NPM_PACKAGES)
release-tests asan-tests: %-tests: packages
	cmake --preset $* $(SETTINGS) -DORR_SLOW_TESTS=$(if $(SKIPS_SLOW),OFF,ON) \
	        -DORR_FEWER_CHECKS=$(if $(SKIPS_SLOW),ON,OFF)
	cmake --build --preset $*
	ctest --preset $* -j $(TESTS_AT_ONCE) $(if $(SKIPS_SLOW),-LE slow)

# One after the other: each build takes the whole machine.
asan-tests: release-tests

form: PACKAGES += $(FORM_PACKAGES) $(NPM_PACKAGES)
form: packages
	tests/page/check_types build/page-tools $(wildcard src/companion/*/web)
	find src include examples tests fuzz bench tools cmake -name '*.h' -o -name '*.hpp' -o -name '*.cpp' \
	    | xargs clang-format-14 --dry-run -Werror

lint: PACKAGES += $(LINT_PACKAGES)
lint: form
	cmake --preset lint
	cmake --build build/lint --target joined_sources
	cmake/lint_units build/lint 6 build/lint/joined
	run-clang-tidy-14 -p build/lint/joined -quiet -j "$$(nproc)" -header-filter='/src/.*' \
	        >build/lint/findings 2>&1 || { cat build/lint/findings; exit 1; }

package: PACKAGES := $(PACKAGE_PACKAGES)
package: packages
	cmake --preset package -DCMAKE_CXX_COMPILER_LAUNCHER=$(CCACHE)
	umask 022; cmake --build --preset package # the archives have the modes of the files

release-check: PACKAGES += $(RELEASE_PACKAGES)
release-check: packages
	packaging/release_check $(if $(BASE),"$(BASE)")

# Nothing is asked of apt when nothing is missing, nor where there is no apt.
packages:
	@command -v apt-get >/dev/null || exit 0; \
	have=$$(dpkg-query -W -f '$${Package} $${db:Status-Status}\n' $(PACKAGES) 2>/dev/null \
	        | sed -n 's/ installed$$//p'); \
	missing=$$(for p in $(PACKAGES); do echo "$$have" | grep -qxF "$$p" || echo "$$p"; done); \
	test -z "$$missing" && exit 0; \
	test -z "$(SUDO)" || command -v sudo >/dev/null \
	    || { echo "To be installed by root:" $$missing >&2; exit 1; }; \
	echo "Installing:" $$missing; \
	$(SUDO) apt-get -q update; \
	$(SUDO) env DEBIAN_FRONTEND=noninteractive apt-get -q -y --no-install-recommends \
	        -o DPkg::Lock::Timeout=300 install $$missing
