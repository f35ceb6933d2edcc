"""What an office may switch on: more menu items, names told apart, the middle button, help."""
import contextlib
import os
import re
import shutil
import subprocess
import time
import unittest

from host import ANSI, ARCH, BUILD, REPOSITORY, HostTest, wine

SAVE, CLOSE, OPTIONS, XREFS = 22392, 22393, 22391, 22394
CLOSE_OTHERS, CLOSE_SAVED, COPY_PATH, OPEN_FOLDER, HELP, DRAWINGS = 22390, 22389, 22388, 22387, 22386, 21000
HELP_TEXT, HELP_LINK, MAIL_LOG, OK = 1010, 1011, 1012, 1
A100 = r"Projects\Riverside\Drawings\A-100.rev2.dwg"
S200 = r"Projects\Station\Drawings\S-200.dwg"
ISSUED = r"Projects\Station\Drawings\S-201 issued.dwg"
EVERYTHING = {
    "PopupCloseOthersText": "Close others", "PopupCloseSavedText": "Close unchanged",
    "PopupCopyPathText": "Copy path", "PopupOpenFolderText": "Open folder",
    "PopupDrawingsText": "Drawings", "PopupHelpText": "Help",
}
MAIL = r"HKLM\Software\Clients\Mail"
PREFIX = BUILD.parent / f"wineprefix-{ARCH}"


class ExtrasBase(HostTest):
    def switch_on(self, **texts):
        """Gives these keys to all drawings."""
        path = self.folder / "install/DomainSettings/support/MDITabs.ini"
        path.write_text("".join(f"{key} = {text}\n" for key, text in texts.items()) + path.read_text(ANSI), ANSI)


class ExtrasTest(ExtrasBase):
    def test_the_menu_offers_what_can_be_done(self):
        self.switch_on(**EVERYTHING)
        transcript = self.run_host([
            "MENU 0", f"OPEN {A100}", f'OPEN "{ISSUED}"', "SWITCH 1", "LINE 0 0 1 1", "SWITCH 0", "MENU 1", "MENU 2",
            "LOCKDOCS 1", "MENU 1", f"MENU 1 {OPEN_FOLDER + 1000}"], expect_exit=None)
        alone, river, issued, locked = transcript.menus[:4]
        texts = [item[1:3] if item else None for item in river]
        self.assertEqual(texts, [
            (SAVE, "&Save to Riverside"), (CLOSE, "&Close"), (CLOSE_OTHERS, "Close others"),
            (CLOSE_SAVED, "Close unchanged"), None,
            (COPY_PATH, "Copy path"), (OPEN_FOLDER, "Open folder"), (0, "Drawings"),
            (DRAWINGS, "Drawing1"), (DRAWINGS + 1, "A-100.rev2 *"), (DRAWINGS + 2, "S-201 issued"), None,
            (OPTIONS, "&Options..."), (HELP, "Help"), None,
            (0, "Riverside &references"), *(item[1:3] for item in river[-3:])])
        self.assertTrue(all(item[3] for item in river if item))
        self.assertEqual({item[0] for item in river if item and item[1] in (DRAWINGS, XREFS)}, {1})
        self.assertEqual([item[1] if item else None for item in alone],
                         [SAVE, CLOSE, CLOSE_SAVED, None, 0, DRAWINGS, None, OPTIONS, HELP],
                         "one drawing, without a file")
        self.assertEqual([item[1] for item in issued if item][:3], [CLOSE, CLOSE_OTHERS, CLOSE_SAVED], "read-only")
        self.assertEqual([item[1] if item else None for item in locked[:7]],
                         [SAVE, CLOSE, None, COPY_PATH, OPEN_FOLDER, None, OPTIONS], "nothing that switches")
        self.assertEqual(transcript.checked, ["Drawing1"] * 3, "the active one")

    def test_a_drawing_chosen_from_the_list_becomes_the_active_one(self):
        self.switch_on(**EVERYTHING)
        transcript = self.run_host([f"OPEN {A100}", f"OPEN {S200}", f"MENU 0 {DRAWINGS + 1}", "STRIP"])
        self.assertEqual(transcript.strips[0].selected, 1)

    def test_closing_several(self):
        self.switch_on(**EVERYTHING)
        transcript = self.run_host([
            f"OPEN {A100}", f'OPEN "{ISSUED}"', f"OPEN {S200}", "LINE 0 0 1 1",
            f"MENU 1 {CLOSE_SAVED}", "STRIP", f"OPEN {A100}", f"OPEN \"{ISSUED}\"", f"MENU 1 {CLOSE_OTHERS}", "STRIP"])
        saved, others = transcript.strips
        self.assertEqual([tab.file for tab in saved.tabs], ["S-200.dwg"])
        self.assertEqual([tab.file for tab in others.tabs], ["A-100.rev2.dwg"])
        self.assertIn('The changes to "S-200.dwg" are discarded.', transcript.text, "the host asks as usual")

    def test_the_path_for_colleagues(self):
        self.switch_on(**EVERYTHING)
        share = PREFIX / "dosdevices/unc/server/cad share"
        shutil.rmtree(share.parents[1], ignore_errors=True)  # of a run that was cut off
        share.parent.mkdir(parents=True)
        drive = PREFIX / "dosdevices/q:"
        wine("reg", "add", r"HKLM\Software\Wine\Drives", "/v", "q:", "/d", "network", "/f")
        with contextlib.ExitStack() as undo:
            undo.callback(shutil.rmtree, share.parents[1])
            undo.callback(wine, "reg", "delete", r"HKLM\Software\Wine\Drives", "/v", "q:", "/f")
            for link, target in ((share, self.folder / "Projects"), (drive, "unc/server/cad share")):
                link.unlink(missing_ok=True)
                link.symlink_to(target)
                undo.callback(link.unlink)
            # Drives are looked up when Wine starts.
            subprocess.run([REPOSITORY / "tools/wine-stop", ARCH, PREFIX], check=True)
            transcript = self.run_host([f"OPEN {A100}", f"MENU 1 {COPY_PATH}", "CLIPBOARD",
                                        r'OPEN "q:\Station\Drawings\S-201 issued.dwg"', f"MENU 2 {COPY_PATH}", "CLIPBOARD"])
        pasted = [line for line in transcript.lines if line.startswith("clipboard: ")]
        self.assertEqual(pasted, [f'clipboard: "{self.path(A100)}"',
                                  r'clipboard: "\\server\cad share\Station\Drawings\S-201 issued.dwg"'])

    def test_names_told_apart(self):
        self.switch_on(SameNameText='" (%DISTINCT_FOLDER%)"')
        shutil.copy(self.folder / "Sketches/Sketch.dwg", self.folder / "Projects/Station/Drawings/A-100.rev2.dwg")
        strip, = self.run_host([f"OPEN {A100}", r"OPEN Projects\Station\Drawings\A-100.rev2.dwg",
                                r"OPEN Projects\Riverside\Drawings\Drawing1.dwg", "STRIP"]).strips
        self.assertEqual(strip.texts, ["Drawing1", "A-100.rev2 (Riverside)", "A-100.rev2 (Station)",
                                       "Drawing1 (Drawings)"], "the first was never saved")

    def test_the_middle_button(self):
        script = [f"OPEN {A100}", f"OPEN {S200}", "MIDDLECLICK 1", "STRIP", "MIDDLECLICK 1 0", "STRIP"]
        for off in ({}, {"MiddleClickCloses": 2}):
            self.set_registry(off)
            self.assertEqual([strip.count for strip in self.run_host(script).strips], [3, 3], off)
        self.set_registry({"MiddleClickCloses": 1})
        pressed, dragged = self.run_host(script).strips
        self.assertEqual(pressed.texts, ["Drawing1", "S-200"])
        self.assertEqual(dragged.texts, pressed.texts, "released elsewhere")


class OutsideTest(ExtrasBase):
    """What reaches other programs: Explorer, the web browser, the mail program."""

    def setUp(self):
        super().setUp()
        self.undo = contextlib.ExitStack()
        self.addCleanup(self.undo.close)
        self.record = self.folder / "commands.txt"
        for name, value in (("COMMAND_RECORD", self.path("commands.txt")), ("MAIL_RECORD", self.path("mail.txt"))):
            os.environ[name] = value
            self.undo.callback(os.environ.pop, name)
        explorer = PREFIX / "drive_c/windows/explorer.exe"
        kept = explorer.with_suffix(".kept")
        explorer.rename(kept)
        self.undo.callback(kept.replace, explorer)
        shutil.copy(BUILD / "commandrecorder.exe", explorer)

    def set_default(self, key, value):
        """Gives the machine's key this default value until the test ends."""
        before = re.search(r"REG_SZ\s+(.*)", wine("reg", "query", key, "/ve")[1])
        wine("reg", "add", key, "/ve", "/d", value, "/f")
        self.undo.callback(wine, "reg", "add", key, "/ve", "/d", before[1].strip() if before else "", "/f")

    def commands(self):
        """What was started, as far as it is known within a few seconds."""
        for _ in range(100):
            if self.record.exists() and self.record.read_text(ANSI).endswith("\n"):
                return self.record.read_text(ANSI).splitlines()
            time.sleep(0.1)
        return []

    def test_the_folder_in_explorer(self):
        self.switch_on(**EVERYTHING)
        self.run_host([f'OPEN "{ISSUED}"', f"MENU 1 {OPEN_FOLDER}", "WAIT 500"])
        self.assertEqual(len(self.commands()), 1)
        self.assertRegex(self.commands()[0], r"(?i)^\"?C:\\windows\\explorer\.exe\"? ")
        self.assertTrue(self.commands()[0].endswith(f'/select,"{self.path(ISSUED)}"'))

    def test_help_and_its_link(self):
        self.switch_on(**EVERYTHING, HelpAddress="www.office.example/cad", SupportAddress="C:\\windows\\calc.exe")
        self.set_default(r"HKLM\Software\Classes\http\shell\open\command", f'"{self.path("recorder.exe")}" "%1"')
        shutil.copy(BUILD / "commandrecorder.exe", self.folder / "recorder.exe")
        transcript = self.run_host([
            f"OPEN {A100}", f"MENU 1 {HELP}", "DIALOG", f"PRESS {HELP_LINK}", "WAIT 200", "PRESS 1",
            f"MENU 1 {HELP}", "KEY TAB", "KEY TAB", "KEY ENTER", "WAIT 500", "KEY ESCAPE", "STRIP"])
        box = transcript.dialogs[0]
        self.assertEqual(sorted(box), [OK, HELP_TEXT, HELP_LINK], "nobody to mail to")
        self.assertEqual(box[HELP_LINK][0], "www.office.example/cad")
        # A folder's name may begin with the letter that ends a line here.
        root = self.path("install")[:-len("install")]
        lines = box[HELP_TEXT][0].replace(root, "").replace("\\n", "\n").replace("\\", "/").split("\n")
        self.assertRegex(lines[0], r"^Product: Zavik ZavikMDITabs \d+\.\d+\.\d+ \(Halvoran\)$")
        self.assertEqual(lines[1], "Module: install/ZavikMDITabs/ZavikMDITabs.arx")
        files = [line.strip() for line in lines if line.startswith("    ")]
        self.assertEqual(files, [
            "install/ZavikMDITabs/support/MDITabs.ini", "install/DomainSettings/support/MDITabs.ini",
            "Projects/Riverside/Settings/support/MDITabs.ini",
            "install/ZavikMDITabs/support/StandardSettings.txt", "install/DomainSettings/DomainSettings.txt",
            "Projects/Riverside/ProjectSettings.txt"])
        self.assertEqual([command.split()[-1] for command in self.commands()], ['"http://www.office.example/cad"'] * 2)

    def test_the_log_by_mail(self):
        self.switch_on(**EVERYTHING, SupportAddress="cad@office.example")
        self.set_registry({}, {"DebugStartup": 1})
        script = [f"OPEN {A100}", f"MENU 1 {HELP}", f"PRESS {MAIL_LOG}", "WAIT 500", "DIALOG", "PRESS 1", "PRESS 1"]
        self.set_default(MAIL, "")
        nobody = self.run_host(script, expect_exit=None)
        self.assertIn("no mail program", nobody.text)
        self.assertTrue(self.commands()[0].endswith('\\Zavik Diagnostics\\ZavikMDITabs.log"'), self.commands())
        self.set_default(MAIL, "Recorder")
        wine("reg", "add", MAIL + r"\Recorder", "/v", "DLLPath", "/d", self.path("mailrecorder.dll"), "/f")
        self.undo.callback(wine, "reg", "delete", MAIL + r"\Recorder", "/f")
        shutil.copy(BUILD / "mailrecorder.dll", self.folder)
        self.run_host(script[:-1])
        mail = (self.folder / "mail.txt").read_text(ANSI)
        self.assertIn("dialog: 1\nrecipients: 1\nto: cad@office.example SMTP:cad@office.example\n"
                      "subject: Zavik ZavikMDITabs", mail)
        self.assertIn("CARXMDITabs::processPopupMenuItem", mail, "the log as it stands")
        self.assertIn("text: Product: Zavik ZavikMDITabs", mail)


if __name__ == "__main__":
    unittest.main()
