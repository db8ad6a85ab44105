#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Records against the JSON Schema: schema_test.py SCHEMA WRITE_SAMPLE...

The latter is a program, after what has to start it, if any.
"""
import copy
import json
import os
import subprocess
import sys
import tempfile
import unittest

try:
    import jsonschema
except ImportError:
    print('The Debian package python3-jsonschema is not installed')
    sys.exit(1 if os.environ.get('L5KOV_TEST_ALL') else 77)

SCHEMA, *WRITE_SAMPLE = sys.argv[1:]


def sample(name):
    with tempfile.NamedTemporaryFile(suffix='.json') as file:
        subprocess.run([*WRITE_SAMPLE, name, 'record', file.name], check=True)
        return json.load(open(file.name, encoding='utf-8'))


def names(value, path=''):
    """Every member's path, list positions left out."""
    if isinstance(value, dict):
        for key, member in value.items():
            yield path + '.' + key
            yield from names(member, path + '.' + key)
    elif isinstance(value, list):
        for member in value:
            yield from names(member, path)


def known(schema, root, path=''):
    if '$ref' in schema:
        schema = root['$defs'][schema['$ref'].rsplit('/', 1)[1]]
    for key, member in schema.get('properties', {}).items():
        yield path + '.' + key
        yield from known(member, root, path + '.' + key)
    if 'items' in schema:
        yield from known(schema['items'], root, path)


class Schema(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.schema = json.load(open(SCHEMA, encoding='utf-8'))
        jsonschema.Draft202012Validator.check_schema(cls.schema)
        cls.validator = jsonschema.Draft202012Validator(cls.schema)

    def test_every_sample_is_valid(self):
        for name in ('calibration', 'verification', 'canceled', 'hostile', 'complete'):
            errors = [e.message for e in self.validator.iter_errors(sample(name))]
            self.assertEqual(errors, [], name)

    def test_schema_and_program_know_the_same_members(self):
        self.assertEqual(set(names(sample('complete'))), set(known(self.schema, self.schema)))

    def test_every_required_member_is_missed(self):
        good = sample('canceled')
        for key in self.schema['required']:
            bad = copy.deepcopy(good)
            del bad[key]
            self.assertFalse(self.validator.is_valid(bad), key)

    def test_bad_values_are_refused(self):
        good = sample('complete')
        for path, value in ((('patches', 3, 'r'), 300), (('target', 'function'), 'dicom'),
                            (('target', 'lmax'), -1), (('simulated',), 1),
                            (('monitor', 'workingHours'), 1.5), (('schemaVersion',), 2),
                            (('startTime',), 'yesterday'), (('surprise',), 1),
                            (('versions', 'jars', 0, 'sha256'), 'ABC')):
            bad = copy.deepcopy(good)
            place = bad
            for step in path[:-1]:
                place = place[step]
            place[path[-1]] = value
            self.assertFalse(self.validator.is_valid(bad), path)


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1], verbosity=2)
