"""What an office may switch on: more menu items, names told apart, the middle button, help."""
import contextlib
import os
import shutil
import subprocess
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
PREFIX = BUILD.parent / f"wineprefix-{ARCH}"


class ExtrasTest(HostTest):
    def switch_on(self, **texts):
        """Gives these keys to all drawings."""
        path = self.folder / "install/DomainSettings/support/MDITabs.ini"
        path.write_text("".join(f"{key} = {text}\n" for key, text in texts.items()) + path.read_text(ANSI), ANSI)

    def test_the_menu_offers_what_can_be_done(self):
        self.switch_on(**EVERYTHING)
        transcript = self.run_host([
            "MENU 0", f"OPEN {A100}", f'OPEN "{ISSUED}"', "SWITCH 1", "LINE 0 0 1 1", "SWITCH 0", "MENU 1", "MENU 2",
            "LOCKDOCS 1", "MENU 1", f"MENU 1 {OPEN_FOLDER + 1000}"], expect_exit=None)
        alone, river, issued, locked = transcript.menus[:4]
        texts = [item[1:3] if item else None for item in river]
        self.assertEqual(texts, [
            (SAVE, "Save to &Riverside"), (CLOSE, "&Close"), (CLOSE_OTHERS, "Close others"),
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
        share.parent.mkdir(parents=True, exist_ok=True)
        drive = PREFIX / "dosdevices/q:"
        wine("reg", "add", r"HKLM\Software\Wine\Drives", "/v", "q:", "/d", "network", "/f")
        with contextlib.ExitStack() as undo:
            undo.callback(wine, "reg", "delete", r"HKLM\Software\Wine\Drives", "/v", "q:", "/f")
            for link, target in ((share, self.folder / "Projects"), (drive, "unc/server/cad share")):
                link.unlink(missing_ok=True)
                link.symlink_to(target)
                undo.callback(link.unlink)
            # Drives are looked up when Wine starts.
            subprocess.run([REPOSITORY / "tools/wine-stop", ARCH], check=True)
            transcript = self.run_host([f"OPEN {A100}", f"MENU 1 {COPY_PATH}", "CLIPBOARD",
                                        r'OPEN "q:\Station\Drawings\S-201 issued.dwg"', f"MENU 2 {COPY_PATH}", "CLIPBOARD"])
        pasted = [line for line in transcript.lines if line.startswith("clipboard: ")]
        self.assertEqual(pasted, [f'clipboard: "{self.path(A100)}"',
                                  r'clipboard: "\\server\cad share\Station\Drawings\S-201 issued.dwg"'])


if __name__ == "__main__":
    unittest.main()
