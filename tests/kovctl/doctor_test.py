# SPDX-License-Identifier: MIT
"""The doctor finds what is broken, says how to mend it, and ends with 5."""
import json
import os
import shutil
import subprocess
import zipfile

import schemas
import side_by_side
from harness import CMAKE, KOVCTL, PROGRAM, RUNTIME, WINDOWS, KovctlTest, not_under_wine


class Doctor(KovctlTest):
    def checks(self, code=5):
        result = self.run_kovctl("doctor", "--json", code=code)
        document = schemas.check(result.json)
        states = [check["state"] for check in document["checks"]]
        self.assertEqual(document["failures"], states.count("FAIL"))
        for check in document["checks"]:
            if check["state"] in ("warn", "FAIL"):
                self.assertTrue(check["remedy"], check)
        return {check["id"]: check for check in document["checks"]}

    def finds(self, name, text, state="FAIL"):
        checks = self.checks(5 if state == "FAIL" else 0)
        self.assertEqual(checks[name]["state"], state, checks[name])
        self.assertIn(text, checks[name]["found"])
        return checks

    def table(self):
        return self.root / "ORVA/Lumora5/Data/Profile/KovMonitorName.xml"

    def test_everything_in_order(self):
        self.table().write_text(self.table().read_text().replace("OR-M215", "OR-C190", 1)
                                .replace("</ModelInfo>", "</ModelInfo><ModelInfo><ModelName>OR-M215"
                                         "</ModelName></ModelInfo>", 1))
        checks = self.checks(code=0)
        # On Windows the rights are not looked at.
        self.assertEqual({check["state"] for name, check in checks.items()
                          if not WINDOWS or name != "rights"}, {"ok"})
        self.assertEqual(checks["rights"]["state"], "skip" if WINDOWS else "ok")
        self.assertIn("112", checks["catalogue"]["found"])
        self.assertIn("x86-64", checks["runtime-library"]["found"])
        self.assertRegex(checks["runtime-version"]["found"], r"^\d+")
        self.assertEqual(len(checks), 20)

    def test_text_output(self):
        result = self.run_kovctl("doctor")
        self.assertIn("ok    Members of the plug-ins     all 112 are there", result.out)
        self.assertIn("warn  Models in the name table", result.out)
        self.assertIn("→ enter them into KovMonitorName.xml", result.out)

    def test_no_application_data(self):
        self.environment["L5KOV_COMMON_APPDATA"] = str(self.folder / "none")
        checks = self.finds("application-data", "missing")
        self.assertIn("the shell's" if WINDOWS else "L5KOV_COMMON_APPDATA",
                      checks["application-data"]["found"])
        self.assertEqual(checks["plugins"]["state"], "FAIL")
        self.assertEqual(checks["catalogue"]["state"], "skip")

    def test_folder_beyond_ascii(self):
        """On Windows Java reads the class path in another encoding, and finds no jar there."""
        folder = self.folder / "Données"
        self.root.rename(folder)
        self.environment["L5KOV_COMMON_APPDATA"] = str(folder)
        checks = self.checks(code=5 if WINDOWS else 0)
        for name in ("application-data", "runtime-library", "library-jar", "name-table",
                     "java-start"):
            self.assertEqual(checks[name]["state"], "ok", checks[name])
        self.assertEqual(checks["catalogue"]["state"], "FAIL" if WINDOWS else "ok")

    def test_no_runtime(self):
        (self.plugins / "com.orva.lumora.jre/jre").unlink()
        checks = self.finds("runtime-library", "missing")
        self.assertEqual(checks["java-start"]["state"], "skip")
        self.assertEqual(checks["library-jar"]["state"], "ok")

    def fake_runtime(self, content):
        jre = self.plugins / "com.orva.lumora.jre/jre"
        jre.unlink()
        (jre / RUNTIME).parent.mkdir(parents=True)
        (jre / RUNTIME).write_bytes(content)

    def test_runtime_of_another_machine(self):
        own = PROGRAM.read_bytes()[:512]
        at, machine = 18, b"\xb7\x00"  # EM_AARCH64
        if WINDOWS:
            at, machine = int.from_bytes(own[60:64], "little") + 4, b"\x64\xaa"
        self.fake_runtime(own[:at] + machine + own[at + 2:])
        checks = self.finds("runtime-library", "for aarch64")
        self.assertEqual(checks["runtime-version"]["state"], "warn")

    def test_runtime_that_is_none(self):
        self.fake_runtime(b"hello")
        self.finds("runtime-library", "not a library of this system")

    def test_runtime_that_does_not_load(self):
        self.fake_runtime(PROGRAM.read_bytes()[:512])
        checks = self.finds("java-start", "cannot be started")
        self.assertEqual(checks["check-jni"]["state"], "skip")

    def test_java_that_ends_the_process(self):
        self.environment["JAVA_TOOL_OPTIONS"] = "-Xmx1k"
        checks = self.finds("java-start", "the process ended with 1")
        self.assertEqual(checks["plugins"]["state"], "ok")
        self.assertEqual(checks["java-options"]["state"], "warn")
        self.assertIn("JAVA_TOOL_OPTIONS=-Xmx1k", checks["java-options"]["found"])
        for name in ("catalogue", "callbacks", "monitors", "packages", "check-jni"):
            self.assertEqual(checks[name]["state"], "skip")

    @not_under_wine("its rights are not looked at")
    def test_rights(self):
        folders = [self.root, self.root / "ORVA/Lumora5", self.plugins, self.jar.parent]
        for path in folders:
            path.chmod(0o757)
        self.jar.chmod(0o646)
        checks = self.finds("rights", "others than the owner", state="warn")
        for path in (*folders, self.jar):
            self.assertRegex(checks["rights"]["found"], f" {path}(,|$)")
        self.assertNotIn("dataImport", checks["rights"]["found"])
        for path in (*folders, self.jar):
            path.chmod(0o755)
        if os.getuid() == 0:  # the group of root is as good as root
            self.jar.chmod(0o664)
            self.assertEqual(self.checks(code=0)["rights"]["state"], "ok")
            os.chown(self.jar, -1, 1)
        self.jar.chmod(0o664)
        checks = self.finds("rights", str(self.jar), state="warn")
        self.assertNotIn(",", checks["rights"]["found"])

    def test_no_jar(self):
        self.jar.unlink()
        checks = self.finds("library-jar", "missing")
        self.assertIn("class com/orva/kov/library", checks["catalogue"]["found"])
        self.assertEqual(checks["callbacks"]["state"], "FAIL")
        self.assertEqual(checks["java-start"]["state"], "ok")

    def test_jar_cut_off(self):
        content = self.jar.read_bytes()
        self.jar.write_bytes(content[:len(content) // 2])
        self.finds("library-jar", "damaged")

    def without_classes(self, *names):
        whole = self.jar.with_suffix(".whole")
        self.jar.rename(whole)
        with zipfile.ZipFile(whole) as old, zipfile.ZipFile(self.jar, "w") as new:
            for entry in old.infolist():
                if entry.filename not in names:
                    new.writestr(entry, old.read(entry))
        whole.unlink()

    def test_one_class_missing(self):
        self.without_classes("com/orva/kov/library/api/Osd.class")
        checks = self.finds("catalogue", "class com/orva/kov/library/api/Osd")
        for member in ("Osd.isLockSupported()Z", "Osd.isLocked()Z", "Osd.setLocked(Z)V"):
            self.assertIn(member, checks["catalogue"]["found"])

    def test_one_member_missing(self):
        """A class of another version: compiled anew without one of its methods."""
        javac = shutil.which("javac") or os.environ["KOVCTL_JAVA_HOME"] + "/bin/javac"
        source = self.folder / "LookUpTable.java"
        source.write_text("package com.orva.kov.library.api;\npublic interface LookUpTable {\n"
                          "  void activate();\n  String getName();\n  boolean isActive();\n}\n")
        subprocess.run([javac, "-d", str(self.folder / "classes"), str(source)], check=True)
        name = "com/orva/kov/library/api/LookUpTable.class"
        self.without_classes(name)
        with zipfile.ZipFile(self.jar, "a") as jar:
            jar.write(self.folder / "classes" / name, name)
        checks = self.finds("catalogue", "LookUpTable.getIndex()I")
        self.assertEqual(checks["catalogue"]["found"],
                         "missing: com/orva/kov/library/api/LookUpTable.getIndex()I")

    def test_callback_class_missing(self):
        self.without_classes("com/orva/kov/library/api/CallbackJniFunctions.class")
        self.finds("callbacks", "")

    def test_name_table(self):
        self.table().write_text("<KovMonitorName><PackageInfo></KovMonitorName>")
        self.finds("name-table", "not well-formed")
        self.table().write_text("<Names/>")
        self.finds("name-table", "no element KovMonitorName")
        self.table().unlink()
        checks = self.finds("name-table", "missing", state="warn")
        self.assertEqual(checks["packages"]["state"], "warn")

    def test_no_monitors(self):
        models = ("OR-C321", "OR-M215", "OR-C240", "OR-C190")
        self.settings(**{f"monitor__{model}__connected": "off" for model in models})
        self.finds("monitors", "0 found", state="warn")

    def test_silent_monitor(self):
        self.faults({"call": "Monitor.getModel", "serial": "21500012", "nth": 1,
                     "class": "java.io.IOException", "message": "Error sending data"})
        self.finds("monitors", "4 found, 1 of them silent", state="warn")

    def test_state_folder_that_is_none(self):
        self.environment["XDG_STATE_HOME"] = str(self.root / "file")
        (self.root / "file").write_text("")
        self.finds("state-folder", "Path not found" if WINDOWS else "Not a directory", state="warn")

    def test_search_that_fails(self):
        self.faults({"call": "MonitorLibrary.startMonitorSearch", "nth": 0,
                     "class": "java.io.IOException", "message": "no bus"})
        self.finds("monitors", "java.io.IOException: no bus")


LIB = "bin" if WINDOWS else "lib"
METER, CHROMA, HOST = (("libmeter_x64.dll", "libchroma_x64.dll", "libl5kov.dll") if WINDOWS else
                       ("libmeter_x64.so", "libchroma_x64.so", "libl5kov.so.1"))


class WithoutLibraries(KovctlTest):
    """The program in an installed tree from which libraries are missing."""

    def setUp(self):
        super().setUp()
        self.tree = self.folder / "tree"
        subprocess.run([CMAKE, "--install", PROGRAM.parent.parent, "--prefix", self.tree],
                       check=True, stdout=subprocess.DEVNULL)
        for name in (METER, CHROMA):
            shutil.copy(os.environ["KOVCTL_SIMULATOR_DIR"] + "/" + name, self.tree / LIB / name)

    def run_tree(self, *arguments, code):
        program = self.tree / "bin" / PROGRAM.name
        # Nothing is found where the build has it.
        self.environment.update(KOVCTL_EXE=str(program), KOVCTL_SIMULATOR_DIR=str(self.tree))
        process = subprocess.run([KOVCTL if WINDOWS else program, *arguments], env=self.environment,
                                 stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                 stderr=subprocess.PIPE)
        self.assertEqual(process.returncode, code, process)
        return process

    def test_whole_tree_works(self):
        self.run_tree("list", code=0)
        self.assertTrue((self.tree / "share/man/man1/kovctl.1").is_file())
        self.assertEqual(len(list((self.tree / "share/l5kov/schema").iterdir())), 13)

    def test_tree_that_was_moved(self):
        moved = self.folder / "elsewhere" / "tree"
        moved.parent.mkdir()
        self.tree = self.tree.rename(moved)
        self.run_tree("list", code=0)

    def test_measurement_library_missing(self):
        (self.tree / LIB / METER).unlink()
        self.assertIn(METER.encode(), self.run_tree("list", code=5).stderr)
        document = schemas.check(json.loads(self.run_tree("doctor", "--json", code=5).stdout))
        checks = {check["id"]: check for check in document["checks"]}
        self.assertIn(METER, checks["host-library"]["found"])
        self.assertEqual(checks["measurement-library"]["state"], "FAIL")
        self.assertEqual(checks["plugins"]["state"], "ok")
        self.assertEqual(checks["catalogue"]["state"], "skip")
        error = schemas.check(json.loads(self.run_tree("list", "--json", code=5).stdout))
        self.assertIn(METER, error["message"])

    def test_host_library_missing(self):
        (self.tree / LIB / HOST).unlink()
        self.assertIn(HOST.encode(), self.run_tree("doctor", code=5).stdout)
        self.assertIn(HOST.encode(), self.run_tree("list", code=5).stderr)

    @not_under_wine("libraries of Windows have no run paths")
    def test_no_path_of_the_build_is_left(self):
        for name in ("bin/kovctl", "lib/libkovctl-main.so"):
            text = subprocess.run(["readelf", "-d", self.tree / name], check=True,
                                  stdout=subprocess.PIPE).stdout.decode()
            for line in text.splitlines():
                if "RUNPATH" in line or "RPATH" in line:
                    paths = line[line.index("[") + 1:line.index("]")].split(":")
                    self.assertTrue(all(path.startswith("$ORIGIN") for path in paths), line)
                    self.assertNotIn("simulator", line)


if __name__ == "__main__":
    side_by_side.main()
