"""The native program killed: see tests/support/kills.py."""
import desk
import kills


class NativeKills(kills.Kills, desk.Case):
    def front(self):
        """By title: no two windows have the same one here."""
        def active():
            return next((desk.described(w)[1] for w in desk.windows() if desk.is_in(w, desk.ACTIVE)), None)
        title = desk.wait_for("a window", active)
        return title, title

    def answer(self, front):
        self.keys("Return")

    def begin_closing(self, title):
        self.window(title)
        self.keys("ctrl+w")

    def begin_rename(self, manager):
        self.keys("F2")
        self.control(manager, "text", "Name")


if __name__ == "__main__":
    desk.main()
