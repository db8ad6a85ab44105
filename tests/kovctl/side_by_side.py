# SPDX-License-Identifier: MIT
"""Runs the tests of a file side by side: most of their time is spent waiting."""
import concurrent.futures
import sys
import unittest


def tests_of(suite):
    for test in suite:
        if isinstance(test, unittest.TestSuite):
            yield from tests_of(test)
        else:
            yield test


def run(test):
    result = unittest.TestResult()
    test.run(result)
    return test, result


def main(workers=4):
    """In place of unittest.main(); names of tests on the command line choose among them."""
    module = sys.modules["__main__"]
    loader = unittest.defaultTestLoader
    suite = (loader.loadTestsFromNames(sys.argv[1:], module) if sys.argv[1:]
             else loader.loadTestsFromModule(module))
    tests = list(tests_of(suite))
    failures = skipped = 0
    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        for test, result in pool.map(run, tests):
            for _, text in result.errors + result.failures:
                failures += 1
                print(f"FAILED {test.id()}\n{text}")
            for _, why in result.skipped:
                skipped += 1
                print(f"skipped {test.id()}: {why}")
    print(f"{len(tests)} tests, {failures} failed, {skipped} skipped")
    sys.exit(1 if failures or not tests else 0)
