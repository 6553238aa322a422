# Every target sets up what it needs; see scripts/.
.PHONY: demo test bench bench-growth bench-peers fuzz docs lint install web test-web bench-web

PRESET ?= debug
SECONDS ?= 30
PREFIX ?= /usr/local

demo:
	@scripts/demo.sh
test:
	@scripts/test.sh $(PRESET)
bench:
	@scripts/bench.sh $(ARGS)
bench-growth:
	@scripts/bench-growth.sh $(ARGS)
bench-peers:
	@scripts/bench-peers.sh $(if $(TRACE),--trace '$(TRACE)') $(if $(KEYS),--keys $(KEYS)) $(if $(ALL),--all)
fuzz:
	@scripts/fuzz.sh $(SECONDS)
web:
	@scripts/web.sh
test-web:
	@scripts/test-web.sh
bench-web:
	@scripts/bench-web.sh
docs:
	@scripts/docs.sh
lint:
	@scripts/lint.sh
install:
	@scripts/install.sh $(PREFIX)
