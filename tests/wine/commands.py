"""Tool bar, palette, scrolling."""
import case
import desk

PEN, RECENT_2, PALETTE_PEN, BACKGROUND = 32705, 32706, 32711, 32703
NEW, SPACE, ERASER, ERASE_ALL, TOOLS = 32701, 32704, 32709, 32710, 32702
COLOR_GROUP = [PEN, 32706, 32707, 32708, PALETTE_PEN, SPACE, ERASER]


class Commands(case.Case):
    def setUp(self):
        super().setUp()
        self.path = self.put_note("a.ikw")
        self.program, self.frame, self.page = self.open(f"{desk.ROOT}\\a.ikw", "a - Inkwright")

    def checked(self):
        return [command for command in COLOR_GROUP
                if self.desk.tool_state(self.frame, command) & desk.CHECKED]

    def ink_at(self, x, y):
        return self.desk.ask(f"pixel {self.page['handle']} {x} {y}") != case.WHITE

    def test_what_the_tool_bar_offers(self):
        enabled = {command: bool(self.desk.tool_state(self.frame, command) & desk.ENABLED)
                   for command in (NEW, BACKGROUND, *COLOR_GROUP, ERASE_ALL, TOOLS)}
        self.assertEqual([command for command, is_on in enabled.items() if not is_on], [])
        self.assertEqual(self.checked(), [PEN])
        self.close(self.program, self.frame)

    def test_pen_messages_to_the_frame_mean_its_page(self):
        for message, held, x, y in ((0x201, 1, 50, 120), (0x200, 1, 90, 160), (0x202, 0, 90, 160)):
            self.desk.ask(f"send {self.frame['handle']} {message} {held} {y << 16 | x}")
        self.close(self.program, self.frame)
        self.assertEqual(self.path.read_bytes(), case.note_bytes(588, [[(case.GREY, [(50, 120), (90, 160)])]]))

    def test_a_recent_colour_moves_to_the_front(self):
        self.desk.press_tool(self.frame, RECENT_2)
        self.desk.stroke(self.page, [(50, 120), (90, 160)])
        self.assertEqual(self.checked(), [PEN])
        self.close(self.program, self.frame)
        self.assertEqual(self.path.read_bytes(), case.note_bytes(588, [[(0x4040FF, [(50, 120), (90, 160)])]]))
        self.assertEqual(self.desk.number_setting("LastPenColor"), (4, 0x4040FF))
        self.assertEqual(self.desk.number_setting("PenColor_1"), (4, case.GREY))

    def test_the_palette_gives_the_page_a_colour(self):
        self.desk.press_tool(self.frame, BACKGROUND)
        palette = self.desk.window("Color Palette")
        left, top, _, bottom = palette["client"]
        self.assertFalse(self.desk.window("a - Inkwright")["enabled"])
        self.assertLessEqual(bottom, self.page["client"][3] + 1, "it lies above the menu bar")
        x, y = 40, 40  # the middle of a cell
        chosen = self.desk.ask(f"pixel {palette['handle']} {x} {y}")
        self.assertNotEqual(chosen, case.WHITE)
        self.desk.xdotool("mousemove", left + x, top + y, "click", 1)
        self.desk.wait_until_gone(palette)
        desk.wait_for("the page's new colour",
                      lambda: self.desk.ask(f"pixel {self.page['handle']} 100 400") == chosen)
        self.close(self.program, self.frame)
        self.assertEqual(self.path.read_bytes(), case.note_bytes(588, [], chosen))
        self.assertEqual(self.desk.number_setting("LastBGColor"), (4, chosen))

    def test_turning_away_from_the_palette_changes_nothing(self):
        def press_escape(_):
            self.desk.key("Escape")

        def tap_the_page(_):
            self.desk.xdotool("mousemove", self.page["client"][0] + 300, self.page["client"][1] + 100, "click", 1)

        def close_it(palette):
            self.desk.ask(f"post {palette['handle']} {desk.WM_CLOSE} 0 0")

        for turn_away in (press_escape, tap_the_page, close_it):
            self.desk.press_tool(self.frame, PALETTE_PEN)
            palette = self.desk.window("Color Palette")
            turn_away(palette)
            self.desk.wait_until_gone(palette)
            desk.wait_for("a usable page", lambda: self.desk.window("a - Inkwright")["enabled"])
        before = self.path.read_bytes()
        self.close(self.program, self.frame)
        self.assertEqual(self.path.read_bytes(), before)
        self.assertEqual(self.desk.number_setting("LastPenColor"), (4, case.GREY))

    def test_keys_scroll_and_writing_goes_on_below(self):
        self.desk.stroke(self.page, [(50, 500), (90, 540)])
        # The first time down makes room below the ink, later ones go through it page by page.
        grown, line, page = int(588 * 0.7), int(589 / 10), int(589 / 1.15)
        for key, moved in (("Down", grown), ("Up", 0), ("Right", line), ("Left", 0), ("Down", page)):
            self.desk.key(key)
            desk.wait_for(f"{key} to move the ink by {moved} rows", lambda: self.ink_at(70, 520 - moved))
            self.assertFalse(self.ink_at(70, 520 - moved + 40), "one stroke is shown once")
        self.desk.stroke(self.page, [(200, 100), (240, 140)])
        self.close(self.program, self.frame)
        upper, lower = [(50, 500), (90, 540)], [(200, 100 + page), (240, 140 + page)]
        self.assertEqual(self.path.read_bytes(),
                         case.note_bytes(588, [[(case.GREY, upper)], [], [(case.GREY, lower)]]))


if __name__ == "__main__":
    case.main()
