# SPDX-License-Identifier: MIT
"""JSON documents against the schemas that come with kovctl."""
import functools
import json

import warnings

import jsonschema

from harness import SCHEMAS

STORE = {path.name: json.loads(path.read_text(encoding="utf-8")) for path in
         SCHEMAS.glob("*.schema.json")}


@functools.cache
def validator(name):
    schema = STORE[name + ".schema.json"]
    jsonschema.Draft202012Validator.check_schema(schema)
    with warnings.catch_warnings():
        # Deprecated in newer versions, the only way in Debian 12's.
        warnings.simplefilter("ignore", DeprecationWarning)
        resolver = jsonschema.RefResolver(name + ".schema.json", schema, store=STORE)
        return jsonschema.Draft202012Validator(schema, resolver=resolver)


def check(document):
    """By the schema that the document names."""
    name = document["schema"]
    assert name.startswith("kovctl-"), name
    validator(name[len("kovctl-"):]).validate(document)
    return document


def check_event(event):
    validator("event").validate(event)
    return event
