"""What the options dialog stores; how it looks and what the strip does then is in tests/transcripts."""
import unittest

from host import DEBUG, DISCREET, EXTENSIONS, ICONS, TOOLTIPS, TOP, USE, HostTest, options

DEFAULTS = {"TabLocation": 1, "IsDiscreet": 0, "UseToolTips": 1, "UseExtensions": 0, "UseIcons": 1, "Use": 1}
EVERY = (TOP, DISCREET, TOOLTIPS, EXTENSIONS, ICONS, USE)


class OptionsTest(HostTest):
    def test_what_is_stored(self):
        for before, presses, end, after in (
                ({}, (DEBUG, *EVERY), 2, {}), ({}, (), 1, DEFAULTS),
                ({}, EVERY, 1, dict(zip(DEFAULTS, (0, 1, 0, 1, 0, 0)))),
                # No position is shown for one that is none, and none is stored.
                ({"TabLocation": 7}, (), 1, {**DEFAULTS, "TabLocation": 0xFFFFFFFF})):
            with self.subTest(presses=presses, before=before):
                self.set_registry(before)
                self.run_host(options(*presses, end=end))
                self.assertEqual(self.registry(), after)


if __name__ == "__main__":
    unittest.main()
