"""Eraser and space tool with the real pointer, keys and wheel."""
import case
import desk

PEN, SPACE, ERASER = 32705, 32704, 32709
UPPER, MIDDLE, LOWER = ([(x, y) for x in range(60, 141, 8)] for y in (120, 200, 480))


class Erasing(case.Case):
    def setUp(self):
        super().setUp()
        self.path = self.put_note("a.ikw")
        self.program, self.frame, self.page = self.open(f"{desk.ROOT}\\a.ikw", "a - Inkwright")

    def choose_by_key(self, key, tool):
        self.desk.key(key)
        desk.wait_for(f"{key} to choose its tool",
                      lambda: self.desk.tool_state(self.frame, tool) & desk.CHECKED)

    def shows(self, color, places):
        return all(self.desk.pixel(self.page, x, y) == color for x, y in places)

    def test_strokes_fall_apart_and_rows_open_and_close(self):
        for line in (UPPER, MIDDLE, LOWER):
            self.desk.stroke(self.page, line)
        self.choose_by_key("ctrl+e", ERASER)
        # Where a step meets ink, at its place or a row below, it has come once that is white.
        self.desk.drag(self.page, [(100, 90), (100, 110), (100, 119), (100, 200)],
                       lambda x, y: self.shows(case.WHITE, [(x, y), (x, y + 1)]))
        desk.wait_for("the rest of the strokes", lambda: not self.shows(case.WHITE, [(92, 120)]))

        self.desk.press_tool(self.frame, SPACE)
        inverted = lambda x, y: self.shows(0, [(300, y)])
        self.desk.drag(self.page, [(30, 160), (30, 190), (40, 220)], inverted)
        desk.wait_for("the ink 60 rows further down", lambda: not self.shows(case.WHITE, [(64, 260), (64, 540)]))
        self.assertTrue(self.shows(case.WHITE, [(64, 200), (300, 220)]))
        self.desk.drag(self.page, [(30, 500), (30, 300), (30, 60)], inverted)
        desk.wait_for("the lowest ink below the middle one", lambda: not self.shows(case.WHITE, [(64, 261)]))

        self.choose_by_key("ctrl+p", PEN)
        self.desk.key("ctrl+w")
        self.assertEqual(self.desk.finish(self.program), 0)
        def moved(line, rows):
            return [(x, y + rows) for x, y in line]
        pieces = [UPPER[:5], UPPER[6:], moved(MIDDLE[:5], 60), moved(MIDDLE[6:], 60), moved(LOWER, -219)]
        self.assertEqual(self.path.read_bytes(), case.note_bytes(588, [[(case.GREY, line) for line in pieces]]))

    def test_the_page_shrinks_under_the_eraser_and_the_wheel_scrolls(self):
        self.desk.stroke(self.page, MIDDLE)
        self.desk.xdotool("click", 5)  # the wheel, one notch down: makes room below the ink
        desk.wait_for("room below", lambda: self.shows(case.WHITE, MIDDLE))
        notch = 3 * int(589 / 10)  # as many lines as the system is set to
        self.desk.stroke(self.page, [(x, y - notch) for x, y in LOWER])
        self.desk.xdotool("click", 4)
        desk.wait_for("the ink a notch further down", lambda: not self.shows(case.WHITE, LOWER[:1]))
        self.choose_by_key("ctrl+e", ERASER)
        self.desk.drag(self.page, LOWER, lambda x, y: self.shows(case.WHITE, [(x, y)]))
        desk.wait_for("the top of the page", lambda: not self.shows(case.WHITE, MIDDLE[:1]))
        self.close(self.program, self.frame)
        self.assertEqual(self.path.read_bytes(), case.note_bytes(588, [[(case.GREY, MIDDLE)]]))


if __name__ == "__main__":
    case.main()
