# SPDX-License-Identifier: MIT
"""The doctor tells Java options in the environment for which Java may end the whole process."""
import schemas
import side_by_side
from harness import KovctlTest

# Each with a start that fails: what is asked for is not there.
FATAL = ("-agentlib:nope", "-javaagent:/nope.jar", "-XX:MaxMetaspaceSize=1k",
         "-Xshare:on -XX:SharedArchiveFile=/nope", "--limit-modules=nope",
         "-Djava.security.manager=nope", "-Djava.system.class.loader=Nope",
         "-Djdk.module.main=nope", "-Dcom.sun.management.jmxremote.port=nope",
         "-Dcom.sun.management.config.file=/nope", "-Dfile.separator=")
HARMLESS = ("-Dsome.property=1", "-DRAM=1 -Dx=-Xmx1k -Djava.io.tmpdir=/mnt/RAMDISK",
            *(" ".join("-D" + name + value for name in (
                "java.awt.headless", "java.io.tmpdir", "java.library.path",
                "java.net.preferIPv4Stack", "java.net.preferIPv6Addresses", "user.country",
                "user.language", "user.timezone")) for value in ("", "=", "=nope", "='a b'")),
             "-Dsome.property='two words' \"-Da=b c\"", "-Xcheck:jni",
            "-Xlog:disable -verbose:gc", "-ea -da:some.Name -enableassertions:some.Name",
            "-XX:NativeMemoryTracking=summary -Xrs", "-XX:+UnlockDiagnosticVMOptions")


class JavaOptions(KovctlTest):
    def doctor(self, name, value):
        self.environment[name] = value
        result = self.finish(self.start("doctor", "--json"))
        return {check["id"]: check for check in schemas.check(result.json)["checks"]}

    def found(self, name, value, state):
        check = self.doctor(name, value)["java-options"]
        self.assertEqual(check["state"], state, value)
        return check["found"]

    def test_that_end_the_process(self):
        for option in FATAL:
            with self.subTest(option):
                checks = self.doctor("JAVA_TOOL_OPTIONS", option)
                self.assertEqual(checks["java-options"]["state"], "warn")
                self.assertEqual(checks["java-options"]["found"],
                                 "may keep Java from its start: JAVA_TOOL_OPTIONS=" + option)
                self.assertIn("ends the whole host's process", checks["java-options"]["remedy"])
                self.assertEqual(checks["java-start"]["state"], "FAIL")
                self.assertIn("the process ended with 1", checks["java-start"]["found"])

    def test_that_prints_its_help_and_ends_the_process(self):
        checks = self.doctor("JAVA_TOOL_OPTIONS", "-Xlog:help")
        self.assertEqual(checks["java-options"]["state"], "warn")
        self.assertEqual(checks["java-start"]["state"], "FAIL")

    def test_one_among_harmless_ones(self):
        self.assertIn("may keep Java",
                      self.found("_JAVA_OPTIONS", "-Xcheck:jni -XX:+UseSerialGC -Da=b", "warn"))

    def test_that_are_refused(self):
        """It is no part of a property, and Java refuses it."""
        checks = self.doctor("JAVA_TOOL_OPTIONS", "-Da=b -Xrubbish")
        self.assertEqual(checks["java-options"]["state"], "warn")
        self.assertEqual(checks["java-start"]["state"], "FAIL")
        self.assertNotIn("ended", checks["java-start"]["found"])

    def test_that_are_harmless(self):
        for option in HARMLESS:
            with self.subTest(option):
                checks = self.doctor("JAVA_TOOL_OPTIONS", option)
                self.assertEqual(checks["java-options"]["state"], "ok", checks["java-options"])
                self.assertEqual(checks["java-start"]["state"], "ok", checks["java-start"])

    def test_in_a_file(self):
        for option in ("-XX:Flags=some", "-Da=b -XX:VMOptionsFile=some", "@some", "-Da=b @some"):
            with self.subTest(option):
                self.assertIn("not looked into: _JAVA_OPTIONS=" + option,
                              self.found("_JAVA_OPTIONS", option, "warn"))
        self.found("_JAVA_OPTIONS", "-Da=@b -Dc=d@e", "ok")


if __name__ == "__main__":
    side_by_side.main()
