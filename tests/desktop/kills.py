"""The native program killed: see tests/support/killing.py."""
import desk
import killing


class NativeKills(killing.Kills, desk.Case):
    kills = 15
    longest_save, longest_move = 0.06, 0.02

    def front(self):
        """Told by all that it shows: the question and what is said after it have one title."""
        def active():
            return next((w for w in desk.windows() if desk.is_in(w, desk.ACTIVE)), None)
        window = desk.wait_for("a window", active)
        return [desk.described(node) for node in desk.below(window)], desk.described(window)[1]

    def answer(self, front):
        self.keys("Return")

    def wait_until_gone(self, front):
        desk.wait_for("the answer to count", lambda: self.front()[0] != front)

    def begin_closing(self, title):
        self.window(title)
        self.keys("ctrl+w")

    def begin_rename(self, manager):
        self.keys("F2")
        self.control(manager, "text", "Name")


if __name__ == "__main__":
    desk.main()
