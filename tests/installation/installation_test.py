"""The Debian package and the plain installation, each in a root of its own: what lies where, what
an upgrade keeps, what a removal and a purge leave, and the program as its unit starts it.

Usage: installation_test.py BUILD-FOLDER CMAKE CPACK
"""
import contextlib
import os
import pathlib
import shlex
import shutil
import socket
import sqlite3
import subprocess
import sys
import tempfile
import time
import unittest

BUILD, CMAKE, CPACK = sys.argv[1:]
SYSTEM = {"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL": "C.UTF-8"}
UNIT = "lib/systemd/system/varekservice.service"
LINK = "etc/systemd/system/multi-user.target.wants/varekservice.service"
STATE = {"config.qmz", "mailto.conf", "SMSTO.conf", "autosave.d/README", "database/Event.mdb",
         "database/data.mdb"}
RIGHTS = {name: 0o600 for name in STATE} | {"autosave.d/README": 0o644, "autosave.d": 0o755,
                                            "Varek": 0o755, "mailto": 0o755, "try-varek": 0o755}


def run(*command, **options):
    done = subprocess.run(list(map(str, command)), capture_output=True, text=True, **options)
    assert done.returncode == 0, f"{command}: {done.stdout}{done.stderr}"
    return done.stdout + done.stderr


class InstallationTest(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(tempfile.mkdtemp(prefix="varek-installation-")).resolve()
        self.addCleanup(shutil.rmtree, self.root)
        self.folder = self.root / "opt/varek"
        for name in ("var/lib/dpkg/info", "var/lib/dpkg/updates", "run/systemd/system", "bin"):
            (self.root / name).mkdir(parents=True, mode=0o700)
        (self.root / "var/lib/dpkg/status").touch()
        self.stub("xdg-open", 'echo "$*"')
        self.stub("systemctl", "true")
        self.port = 20000 + os.getpid() % 10000  # below 32768, as the settings want it
        self.env = {"PATH": f"{self.root}/bin:{SYSTEM['PATH']}", "VAREK_ROOT": str(self.root),
                    "VAREK_SHUTDOWN_COMMAND": "true", "VAREK_COM_DIR": "/nonexistent",
                    "XDG_RUNTIME_DIR": f"{self.root}/bin", "NOTIFY_SOCKET": f"{self.root}/notify"}

    def stub(self, name, text):
        path = self.root / "bin" / name
        path.write_text(f"#!/bin/sh\n{text}\n")
        path.chmod(0o755)

    def dpkg(self, *arguments):
        return run("dpkg", f"--root={self.root}", "--force-not-root", "--force-depends",
                   "--force-script-chrootless", *arguments, env=SYSTEM)

    def files(self):
        return {str(path.relative_to(self.folder)) for path in self.folder.rglob("*")
                if path.is_file()}

    def change_settings(self):
        lines = (self.folder / "config.qmz").read_text().split("\n")
        lines[0], lines[1], lines[5] = "F", "1", str(self.port)
        (self.folder / "config.qmz").write_text("\n".join(lines))

    def records(self):
        with contextlib.closing(sqlite3.connect(self.folder / "database/Event.mdb")) as database:
            events = [row[0] for row in database.execute("SELECT type FROM allevent")]
        return events, (self.folder / "config.qmz").read_text()

    def run_service(self):
        """Runs the program as the manager would, and asks its web console for a page."""
        manager = socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM)
        self.addCleanup(manager.close)
        manager.bind(self.env["NOTIFY_SOCKET"])
        manager.settimeout(60)
        program = shlex.split(run("sed", "-n", "s/^ExecStart=//p", self.root / UNIT))[0]
        service = subprocess.Popen(["sh", "-c", 'SYSTEMD_EXEC_PID=$$ exec "$0"',
                                    f"{self.root}{program}"], env=self.env)
        self.addCleanup(service.kill)
        self.assertEqual(manager.recv(200).decode(), "STATUS=starting")
        self.assertEqual(manager.recv(200).decode(),
                         f"READY=1\nSTATUS=web console on port {self.port}, no UPS")
        page = b""
        while not page.rstrip().endswith(b"</html>"):
            time.sleep(0.1)
            self.assertIsNone(service.poll())
            with contextlib.suppress(ConnectionRefusedError):
                with socket.create_connection(("127.0.0.1", self.port), 60) as connection:
                    connection.sendall(b"GET /login.htm HTTP/1.0\r\n\r\n")
                    page = connection.makefile("rb").read()
        service.terminate()
        self.assertEqual(service.wait(60), 0)

    def check_unit(self, unit):
        if shutil.which("systemd-analyze"):
            words = run("systemd-analyze", "security", "--offline=yes", "--threshold=50", unit)
            self.assertNotIn(f"{unit}:", words)  # what the manager does not understand

    def test_the_package_from_its_installation_to_its_purge(self):
        run(CPACK, "--config", f"{BUILD}/CPackConfig.cmake", "-B", self.root / "build",
            "-D", "CPACK_DEBIAN_COMPRESSION_TYPE=none")
        package, = (self.root / "build").glob("varek_*.deb")
        version = run("dpkg-deb", "-f", package, "Version").strip()
        self.assertRegex(version, r"^7\.05\+\d{8}\.\d{6}$")
        self.assertIn("does not run yet", self.dpkg("-i", package))
        self.assertEqual(RIGHTS, {name: (self.folder / name).stat().st_mode & 0o7777
                                  for name in RIGHTS})
        for path in ("lib/udev/rules.d/60-varek.rules", "usr/share/applications/varek.desktop",
                     "usr/share/icons/hicolor/128x128/apps/varek.png"):
            self.assertTrue((self.root / path).is_file(), path)
        self.assertFalse([path for path in self.folder.rglob("*") if path.stat().st_mode & 0o022])
        self.check_unit(self.root / UNIT)

        self.change_settings()
        self.run_service()
        for argument, linked in (("\\install", True), ("\\uninstall", False), ("\\install", True)):
            run(self.folder / "Varek", argument, env=self.env)
            self.assertEqual((self.root / LINK).is_symlink(), linked)
            self.assertTrue((self.root / UNIT).is_file())
        self.assertEqual(os.readlink(self.root / LINK), "/" + UNIT)

        before = self.records()
        self.assertEqual(before[0][:2], [1, 2])
        (self.folder / "httpEnglish/scheduleshow.htm").write_text("made by the web console")
        (self.folder / "config.qmz").chmod(0o644)  # as an older version left it
        run("dpkg-deb", "-R", package, self.root / "newer")
        run("sed", "-i", "s/^Version: /Version: 1:/", self.root / "newer/DEBIAN/control")
        run("dpkg-deb", "-Znone", "-b", self.root / "newer", self.root / "newer.deb")
        self.assertNotIn("does not run yet", self.dpkg("-i", self.root / "newer.deb"))
        self.assertEqual(self.records(), before)
        self.assertEqual((self.folder / "config.qmz").stat().st_mode & 0o7777, 0o600)

        self.assertNotIn("http", self.dpkg("-r", "varek"))
        self.assertEqual(self.files(), STATE | {"removed-while-enabled"})
        self.assertFalse((self.root / LINK).is_symlink())
        self.assertIn("does not run now", self.dpkg("-i", package))
        self.assertEqual(os.readlink(self.root / LINK), "/" + UNIT)
        (self.folder / "autosave.d/10-mine").touch()
        self.dpkg("-r", "varek")
        self.dpkg("-P", "varek")
        self.assertEqual(self.files(), {"autosave.d/10-mine"})
        self.assertFalse((self.root / LINK).is_symlink())

    def test_an_installation_twice_and_the_entry_of_the_menu(self):
        run(CMAKE, "--install", BUILD, "--prefix", self.folder)
        self.change_settings()
        before = self.records()
        (self.folder / "Varek").unlink()
        run(CMAKE, "--install", BUILD, "--prefix", self.folder)
        self.assertEqual(self.records(), before)
        self.assertLessEqual(STATE | {"Varek", "upssim", "httpBig5/login.htm"}, self.files())

        (self.folder / "alert").unlink()
        shutil.copy("/bin/true", self.folder / "alert")
        for status, page in (("web console on port 4711, no UPS", True),
                             ("web console on port 4711", True),
                             ("web console can't have port 4711", False),
                             ("web console off, no database", False), ("starting", False)):
            self.stub("systemctl", f'case $3 in ActiveState) echo active ;;'
                                   f' *) echo "{status}" ;; esac')
            told = subprocess.run([self.folder / "varek-desktop"], env=self.env,
                                  capture_output=True, text=True).stdout
            self.assertEqual(told, "http://127.0.0.1:4711/\n" if page else "", status)


if os.getuid() != 0 or not shutil.which("dpkg-deb", path=SYSTEM["PATH"]):
    print("Skipped: the installation test needs root rights and dpkg.")
    sys.exit(77)
unittest.main(argv=sys.argv[:1], verbosity=2)
