"""The Windows program killed: see tests/support/killing.py."""
import desk
import killing

IDM_RENAME = 32902


class WineKills(killing.Kills, desk.Case):
    def front(self):
        window = desk.wait_for("a window", self.windows)[0]
        return window, window["text"]

    def answer(self, front):
        self.post(front, desk.WM_COMMAND, self.child(front, **{"class": "Button"})["id"])

    def begin_closing(self, title):
        self.post(self.window(title), desk.WM_CLOSE)

    def begin_rename(self, manager):
        self.post(manager, desk.WM_COMMAND, IDM_RENAME)
        self.child(manager, **{"class": "Edit"})


if __name__ == "__main__":
    desk.main()
