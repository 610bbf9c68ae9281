"""Numbers by which the Windows program's controls and commands are found."""
import pathlib


class Ids:
    """Numbers of the controls, from their order in each form."""

    FIRST_CONTROL = 1000
    FIRST_TOOL = 8000
    FIRST_MENU_TOOL = 9000

    @classmethod
    def of(cls, prefix, build):
        """Those of the program in this build folder."""
        return cls(prefix.run(pathlib.Path(build) / "bin" / "control_ids.exe").stdout.splitlines())

    def __init__(self, lines):
        self.forms = {}
        self.menus = {}
        for line in lines:
            form, name = line.split(" ", 1)
            if name.startswith("menu "):
                self.menus.setdefault(form, []).append(name[5:])
            else:
                self.forms.setdefault(form, []).append(name)

    def has(self, form, control):
        return control in self.forms[form]

    def number(self, form, control):
        return self.FIRST_CONTROL + self.forms[form].index(control)

    def name(self, form, number):
        place = number - self.FIRST_CONTROL
        return self.forms[form][place] if 0 <= place < len(self.forms[form]) else None

    def tool(self, number):
        return self.FIRST_TOOL + number

    def menu_tool(self, form, tool):
        return self.FIRST_MENU_TOOL + self.menus[form].index(tool)
