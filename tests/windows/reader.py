"""What of the program's values can be seen from outside."""
import re

from agent import text_of
from messages import (BM_GETCHECK, BUTTON, CB_GETCOUNT, CB_GETCURSEL, COMBO, EDIT, EM_GETSEL, LB_GETCOUNT,
                      LB_GETCURSEL, LIST, SBM_GETPOS, SB_GETTEXTW, SCROLL_BAR, STATIC, TB_ISBUTTONENABLED)
from script import Unplayable
from watcher import SETTINGS, Watcher, value_of


class Unknown:
    """A value that cannot be seen from outside."""


# A button that is off keeps its window: that it is shows in its picture alone.
PICTURE_BUTTONS = {("frmPrintPreview", "cmdUp"), ("frmPrintPreview", "cmdDown")}

# Where the preview tells them to the user.
COUNTS = {"frmPrintPreview.iCurrentPage": "frmPrintPreview.StatusBar(1).Text",
          "frmPrintPreview.iTotalPages": "frmPrintPreview.StatusBar(2).Text"}


class Reader(Watcher):
    """Answers the script's questions."""

    def do_get(self, path):
        value = self.value(path)
        if value is Unknown:
            self.note(get=path, unknown=True)
        else:
            self.note(get=path, value=value)

    def value(self, path):
        if path == "Forms":
            return list(self.shown)
        if path.startswith("Store."):
            known = (self.registry.values(SETTINGS) or {}).get(path[6:])
            return None if known is None else value_of(*known)
        parts = path.split(".")
        if path == "frmMain.Page":
            return next(page for page in range(4) if self.window("frmMain", f"WizardPanel({page})").visible)
        if path in COUNTS:
            return int(self.value(COUNTS[path]).rpartition(": ")[2])
        if len(parts) == 2 and parts[1] == "ActiveControl":
            return self.ids.name(parts[0], self.agent.number("id", self.agent.number("focus")))
        if len(parts) == 2 and parts[1] == "Visible":
            return self.form(parts[0]).visible
        if len(parts) != 3 or parts[0] not in self.ids.forms:
            return Unknown
        return self.property(*parts)

    def property(self, form, control, name):
        if re.fullmatch(r"StatusBar\(\d+\)", control) and name == "Text":
            panel = int(control[10:-1])
            return text_of(self.agent.ask("fetch", self.handle(form, "StatusBar"), SB_GETTEXTW, panel - 1))
        if re.fullmatch(r"Toolbar\(\d+\)", control) and name == "Enabled":
            command = self.ids.tool(int(control[8:-1]))
            return self.agent.number("send", self.handle(form, "Toolbar"), TB_ISBUTTONENABLED, command, 0) != 0
        if not self.ids.has(form, control):
            return Unknown
        try:
            window = self.window(form, control)
        except Unplayable:
            return Unknown
        if name == "Visible":
            return window.visible
        if name == "Enabled" and (form, control) in PICTURE_BUTTONS:
            return Unknown
        if name == "Enabled":
            return window.own_enabled
        if window.kind == EDIT:
            return self.box_property(window, name)
        if window.kind in {COMBO, LIST}:
            return self.list_property(window, name)
        if window.kind == SCROLL_BAR and name == "Value":
            return window.send(SBM_GETPOS)
        if window.kind == BUTTON and name == "Value" and control.startswith("opt"):
            return window.send(BM_GETCHECK) == 1
        if window.kind in {BUTTON, STATIC} and name == "Caption":
            return window.text
        return Unknown

    @staticmethod
    def box_property(window, name):
        start, end = (lambda places: (places & 0xFFFF, places >> 16))(window.send(EM_GETSEL))
        return {"Text": window.text, "SelStart": start, "SelLength": end - start}.get(name, Unknown)

    @staticmethod
    def list_property(window, name):
        combo = window.kind == COMBO
        if name == "ListIndex":
            return window.send(CB_GETCURSEL if combo else LB_GETCURSEL)
        if name == "ListCount":
            return window.send(CB_GETCOUNT if combo else LB_GETCOUNT)
        if name == "Text" and combo:
            return window.text
        return Unknown
