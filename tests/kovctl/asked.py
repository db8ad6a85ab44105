# SPDX-License-Identifier: MIT
"""Commands that are asked for their JSON documents, which are checked against the schemas."""
import schemas
from harness import KovctlTest


class Asked(KovctlTest):
    def json(self, *arguments, code=0):
        return schemas.check(self.run_kovctl(*arguments, "--json", code=code).json)

    def error(self, *arguments, code):
        """The same with and without JSON; the error document."""
        text = self.run_kovctl(*arguments, code=code)
        self.assertTrue(text.err.startswith("kovctl: ") or "\nkovctl: " in text.err, text)
        document = schemas.check(self.run_kovctl(*arguments, "--json", code=code).json)
        self.assertEqual(document["exitCode"], code)
        return document
