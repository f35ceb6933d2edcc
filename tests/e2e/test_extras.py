"""What an office may switch on: more menu items, names told apart, the middle button, help."""
import contextlib
import os
import re
import shutil
import subprocess
import time
import unittest

from host import ANSI, ARCH, BUILD, PREFIX, REPOSITORY, HostTest, wine

COPY_PATH, OPEN_FOLDER, HELP = 22388, 22387, 22386
HELP_TEXT, HELP_LINK, MAIL_LOG, OK = 1010, 1011, 1012, 1
A100 = r"Projects\Riverside\Drawings\A-100.rev2.dwg"
EVERYTHING = {
    "PopupCloseOthersText": "Close others", "PopupCloseSavedText": "Close unchanged",
    "PopupCopyPathText": "Copy path", "PopupOpenFolderText": "Open folder",
    "PopupDrawingsText": "Drawings", "PopupHelpText": "Help",
}
HELP_TITLE = 'dialog: "Zavik MDI Tabs - Help"'
MAIL = r"HKLM\Software\Clients\Mail"


class ExtrasBase(HostTest):
    def switch_on(self, **texts):
        """Gives these keys to all drawings."""
        path = self.folder / "install/DomainSettings/support/MDITabs.ini"
        path.write_text("".join(f"{key} = {text}\n" for key, text in texts.items()) + path.read_text(ANSI), ANSI)


class ExtrasTest(ExtrasBase):
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
                                        r'OPEN "q:\Station\Drawings\S-201 issued.dwg"', f"MENU 2 {COPY_PATH}", "CLIPBOARD",
                                        r'OPEN "\\server\cad share\Station\Drawings\S-200.dwg"', f"MENU 3 {COPY_PATH}", "CLIPBOARD"])
        pasted = [line for line in transcript.lines if line.startswith("clipboard: ")]
        self.assertEqual(pasted, [f'clipboard: "{self.path(A100)}"',
                                  r'clipboard: "\\server\cad share\Station\Drawings\S-201 issued.dwg"',
                                  r'clipboard: "\\server\cad share\Station\Drawings\S-200.dwg"'])


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

    def test_the_folder_help_and_its_link(self):
        self.switch_on(**EVERYTHING, HelpAddress="www.office.example/cad", SupportAddress="www.office.example/cad")
        self.set_registry({}, {"DebugStartup": 1})
        self.set_default(r"HKLM\Software\Classes\http\shell\open\command", f'"{self.path("recorder.exe")}" "%1"')
        shutil.copy(BUILD / "commandrecorder.exe", self.folder / "recorder.exe")
        transcript = self.run_host([
            f"OPEN {A100}", f"MENU 1 {HELP}", "DIALOG", f"PRESS {HELP_LINK}", "WAIT 200", "PRESS 1",
            f"MENU 1 {HELP}", "KEY TAB", "KEY TAB", "KEY ENTER", "WAIT 500", "KEY ESCAPE", f"MENU 1 {OPEN_FOLDER}", "WAIT 500"])
        self.assertEqual(sorted(transcript.dialogs[0]), [OK, HELP_TEXT, HELP_LINK], "nobody to mail to")
        ends = [' "http://www.office.example/cad"'] * 2 + [f' /select,"{self.path(A100)}"']
        commands = self.commands()
        self.assertEqual([command[-len(end):] for command, end in zip(commands, ends, strict=True)], ends, commands)

    def test_the_log_by_mail(self):
        self.switch_on(**EVERYTHING, SupportAddress="MailTo:cad@office.example")
        (self.folder / "install/DomainSettings/DomainSettings.txt").unlink()
        for log in PREFIX.glob("drive_c/users/*/Temp/Zavik Diagnostics/*"):
            log.unlink()
        box = self.run_host([f"OPEN {A100}", f"MENU 1 {HELP}", "DIALOG", "PRESS 1"]).dialogs[0]
        self.assertEqual(sorted(box), [OK, HELP_TEXT, HELP_LINK], "nothing to mail")
        self.assertRegex(box[HELP_TEXT][0], r"ZavikMDITabs\.log \(not there: .*StandardSettings\.txt\\n +Z:((?!\\n +Z:).)+ProjectSettings")
        self.set_registry({}, {"DebugStartup": 1})
        script = [f"OPEN {A100}", f"MENU 1 {HELP}", f"PRESS {MAIL_LOG}", "WAIT 500", "DIALOG", "PRESS 1", "PRESS 1"]
        self.set_default(MAIL, "")
        end = r".\n\nPlease mail to cad@office.example, with the log from the folder that has been opened."
        nobody = self.run_host(script)
        self.assertIn("There is no mail program on this computer that could be asked" + end, nobody.text)
        self.assertTrue(self.commands()[0].endswith('\\Zavik Diagnostics\\ZavikMDITabs.log"'), self.commands())
        self.set_default(MAIL, "Recorder")
        wine("reg", "add", MAIL + r"\Recorder", "/v", "DLLPath", "/d", self.path("mailrecorder.dll"), "/f")
        self.undo.callback(wine, "reg", "delete", MAIL + r"\Recorder", "/f")
        shutil.copy(BUILD / "mailrecorder.dll", self.folder)
        self.undo.callback(os.environ.pop, "MAIL_ANSWER")
        for answer, said in (("2", "The mail program reports that the message was not sent" + end), ("1", HELP_TITLE),
                             ("0", HELP_TITLE)):
            os.environ["MAIL_ANSWER"] = answer
            shown = self.run_host(script if said != HELP_TITLE else script[:-1])
            self.assertIn(said, "\n".join(shown.text.split("Command: DIALOG")[1:]), answer)
        mail = (self.folder / "mail.txt").read_text(ANSI)
        self.assertRegex(mail, "dialog: 1\nrecipients: 1\nto: cad@office.example SMTP:cad@office.example\n"
                         "subject: Zavik ZavikMDITabs .*\nattachments: 1\n")
        self.assertIn("CARXMDITabs::processPopupMenuItem", mail, "the log as it stands")
        self.assertIn("text: Product: Zavik ZavikMDITabs", mail)


if __name__ == "__main__":
    unittest.main()
