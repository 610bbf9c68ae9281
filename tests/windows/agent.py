"""The agent inside the Windows session, and the program that it works, as Python objects."""
import subprocess

END_PATIENCE = 60  # seconds

WM_NULL = 0x0000
WM_SETTEXT = 0x000C
WM_CLOSE = 0x0010
WM_COMMAND = 0x0111


def hex_of(text):
    return text.encode("utf-16-le").hex() or "-"


def text_of(digits):
    return "" if digits == "-" else bytes.fromhex(digits).decode("utf-16-le", "replace")


class Agent:
    """Answers one line for each line."""

    def __init__(self, wine, exe, log=None):
        self.process = subprocess.Popen([*wine, str(exe)], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=log or subprocess.DEVNULL, text=True, bufsize=1)

    def ask(self, *words):
        self.process.stdin.write(" ".join(str(word) for word in words) + "\n")
        answer = self.process.stdout.readline()
        if not answer:
            raise RuntimeError(f"the agent is gone: {words}")
        return answer.strip()

    def number(self, *words):
        return int(self.ask(*words))

    def nap(self, milliseconds=10):
        """Waits before the next look; an errand that ends cuts it short."""
        self.ask("nap", milliseconds)

    def close(self):
        self.process.stdin.close()
        try:
            self.process.wait(END_PATIENCE)
        except subprocess.TimeoutExpired:
            self.process.kill()


class Window:
    """A window or control as it stands now."""

    def __init__(self, agent, handle):
        self.agent = agent
        self.handle = int(handle)
        words = agent.ask("control", handle).split()
        own, shown, self.own_enabled, usable, width, height = (int(word) for word in words[:6])
        self.visible = bool(own)
        self.shown = bool(shown)
        self.usable = bool(usable)
        self.size = width, height
        self.kind = text_of(words[6])

    @property
    def text(self):
        return text_of(self.agent.ask("text", self.handle))

    def send(self, message, w_param=0, l_param=0):
        return self.agent.number("send", self.handle, message, w_param, l_param)

    def set_text(self, text):
        self.agent.ask("sendtext", self.handle, WM_SETTEXT, 0, hex_of(text))


class Registry:
    """Values below the current user's root."""

    def __init__(self, agent):
        self.agent = agent

    def values(self, path):
        """Name to (type, data); None if there is no such key."""
        answer = self.agent.ask("values", hex_of(path))
        if answer == "none":
            return None
        words = answer.split()
        return {text_of(words[i]): (int(words[i + 1]), b"" if words[i + 2] == "-" else bytes.fromhex(words[i + 2]))
                for i in range(0, len(words), 3)}

    def set_text(self, path, name, text):
        self.agent.ask("setvalue", hex_of(path), hex_of(name), 1, (text + "\0").encode("utf-16-le").hex())

    def set_number(self, path, name, number):
        self.agent.ask("setvalue", hex_of(path), hex_of(name), 4, (number % 2**32).to_bytes(4, "little").hex())

    def make(self, path):
        self.agent.ask("setvalue", hex_of(path), "-", 1, "-")

    def delete(self, path):
        self.agent.ask("deletekey", hex_of(path))


class Top:
    """A top window as the system lists it."""

    def __init__(self, handle, visible, enabled, kind):
        self.handle = int(handle)
        self.visible = visible == "1"
        self.enabled = enabled == "1"
        self.kind = text_of(kind)


class Program:
    """The running program: its top windows, and what the user does with them."""

    def __init__(self, agent, command_line):
        """`command_line` may also be the path of a shortcut, which is opened as the desktop does."""
        self.agent = agent
        answer = agent.ask("open" if command_line.endswith(".lnk") else "start", hex_of(command_line))
        if answer != "ok":
            raise RuntimeError(f"the program does not start: {answer}")
        self.seen = []
        """The top windows at the last look."""
        self.ended = None
        """The exit code if it had ended by then."""

    def look(self):
        state, *words = self.agent.ask("windows").split()
        self.ended = None if state == "running" else int(state)
        self.seen = [Top(*words[i:i + 4]) for i in range(0, len(words), 4)]

    def exit_code(self):
        self.look()
        return self.ended

    def tops(self):
        self.look()
        return self.seen

    def begin(self, messages):
        """Starts to send (window, message, wParam, lParam) one after another; answers the errand's number."""
        return self.agent.number("begin", *(word for message in messages for word in message))

    def is_done(self, errand):
        return self.agent.ask("done", errand) == "1"

    def handles(self):
        """GDI objects, windows, kernel handles."""
        return [int(word) for word in self.agent.ask("handles").split()]
