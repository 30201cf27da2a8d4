from __future__ import annotations

import gc
import sys
import threading
from concurrent.futures import ThreadPoolExecutor

import pytest
from test_agreement import ONE_OF_EACH_TYPE

import quorvane


@pytest.fixture
def hurried():
    """Threads that take turns as often as they can."""
    interval = sys.getswitchinterval()
    sys.setswitchinterval(1e-6)
    yield
    sys.setswitchinterval(interval)


def test_threads_share_a_network(network, hurried):
    fens = ONE_OF_EACH_TYPE * 500
    expected = network.evaluate_many(fens)

    def work(number: int) -> list[float]:
        return network.evaluate_many(fens) if number % 2 else [network.evaluate(fen) for fen in fens]

    with ThreadPoolExecutor(8) as pool:
        assert list(pool.map(work, range(16))) == [expected] * 16


def test_closing_waits_for_nobody_and_breaks_nothing(random_network, hurried):
    fens = ONE_OF_EACH_TYPE * 200
    for _ in range(20):
        network = quorvane.open_network(random_network)
        expected = network.evaluate_many(fens)
        started = threading.Barrier(5)

        def work() -> bool:
            started.wait()
            try:
                while True:
                    assert network.evaluate_many(fens) == expected
            except quorvane.NetworkError:
                return network.closed

        with ThreadPoolExecutor(4) as pool:
            results = [pool.submit(work) for _ in range(4)]
            started.wait()
            network.close()
            assert all(result.result() for result in results)


def test_what_nobody_refers_to_is_freed(random_network):
    freed = []

    def count(free):
        return lambda handle: (freed.append(free.__name__), free(handle))

    networks = [quorvane.open_network(random_network) for _ in range(2)]
    for network in networks:
        network.evaluate(ONE_OF_EACH_TYPE[0])
        for handle in (network._network, network._caches.cache):
            handle._free = count(handle._free)
    networks[0].close()
    del network, handle, networks
    gc.collect()
    assert freed == ["quorvane_cache_free", "quorvane_network_close"] * 2
