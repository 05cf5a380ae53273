# The two commands of the project:
#   make demo   set up, build, and run the connection manager
#   make test   set up, build, and run every test under Xvfb
# and the one that takes the README's screenshots again:
#   make screenshots
# Both install missing Debian packages first (as root), or print the one
# command that would.

BUILD      ?= build
TSAN_BUILD ?= build-tsan
GENERATOR  := -G Ninja
JOBS       ?= $(shell nproc)

XVFB       := xvfb-run -a -s "-screen 0 1280x1024x24"

PACKAGES := cmake ninja-build g++ ccache pkg-config make python3 \
            libwxgtk3.2-dev libgtk-3-dev libglib2.0-dev-bin libzip-dev libpcre2-dev \
            libgtest-dev libgmock-dev googletest libbenchmark-dev libpugixml-dev \
            xvfb xauth x11-apps zip unzip

.PHONY: all setup configure build demo screenshots test test-tsan bench clean

all: build

setup:
	@missing=""; for p in $(PACKAGES); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q "install ok installed" || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  if [ "$$(id -u)" = 0 ]; then \
	    echo "Installing:$$missing"; \
	    apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $$missing >/dev/null || exit 1; \
	  else \
	    echo "Missing packages. Run:"; echo "  sudo apt-get install$$missing"; exit 1; \
	  fi; \
	fi

$(BUILD)/build.ninja:
	cmake -S . -B $(BUILD) $(GENERATOR) -DCMAKE_BUILD_TYPE=RelWithDebInfo

$(TSAN_BUILD)/build.ninja:
	cmake -S . -B $(TSAN_BUILD) $(GENERATOR) -DCMAKE_BUILD_TYPE=Debug -DUIKIT_SANITIZE=thread -DUIKIT_PLATFORM_ONLY=ON

configure: setup $(BUILD)/build.ninja

build: configure
	cmake --build $(BUILD) -j $(JOBS)

demo: build
	@./host/run-demo.sh $(BUILD)

# The tour on a screen a little larger than the window, so each shot shows
# the window with its cut outline; four of them go to docs/screenshots/.
README_SHOTS := home-fr connected history settings
screenshots: configure
	cmake --build $(BUILD) -j $(JOBS) --target connection-manager
	@SCREEN=420x580x24 ./host/run-demo.sh $(BUILD) --tour
	@mkdir -p docs/screenshots
	@for shot in $(README_SHOTS); do cp $(BUILD)/demo-screenshots/$$shot.png docs/screenshots/ || exit 1; done
	@echo "docs/screenshots/: $(README_SHOTS:=.png)"

# The platform tests and the singleton-slot tests again under
# ThreadSanitizer, then every test under Xvfb.
test: build test-tsan
	cd $(BUILD) && $(XVFB) ctest -j $(JOBS) --output-on-failure --timeout 120

test-tsan: setup $(TSAN_BUILD)/build.ninja
	cmake --build $(TSAN_BUILD) -j $(JOBS) --target platform_tests module_tests
	cd $(TSAN_BUILD) && export TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1" && \
	  ./bin/platform_tests --gtest_brief=1 && ./bin/module_tests --gtest_brief=1

bench: build
	$(XVFB) ./$(BUILD)/bin/uikit_bench

clean:
	rm -rf $(BUILD) $(TSAN_BUILD)
