"""Defaults that spoil a form: a maker's, in the description itself, a server's and a user's."""

import re

TWO_SIDED = re.compile(r"(?i)^(duplex(no)?tumble|.*(longedge|long-edge|book|lefttoright).*|true|on)$")
TWO_SIDED_OPTION = re.compile(rb"^\*(?:JCL)?OpenUI[ \t]+\*(\w*(?:duplex|sides|kd)\w*)", re.MULTILINE | re.IGNORECASE)

SERVER = (
    ("sides", "two-sided-long-edge"), ("number-up", "2"), ("number-up-layout", "btlr"), ("page-set", "even"),
    ("mirror", "true"), ("page-border", "double-thick"), ("fit-to-page", "true"), ("scaling", "50"),
    ("print-scaling", "fill"), ("outputorder", "reverse"), ("page-ranges", "2-2"), ("poster", "2x2"),
    ("natural-scaling", "60"), ("position", "bottom-right"), ("orientation-requested", "5"), ("copies", "3"),
)
SERVER_BANNERS = "standard confidential"
USER = {
    "sides": "two-sided-short-edge", "number-up": "4", "page-set": "odd", "mirror": "true", "page-ranges": "2",
    "scaling": "200", "fit-to-page": "true", "page-border": "single", "job-sheets": "secret,topsecret",
    "outputorder": "reverse", "Duplex": "DuplexTumble", "JCLDuplex": "DuplexTumble", "EFDuplex": "FrontTopBackTop",
    "landscape": "true", "orientation-requested": "6", "page-left": "72", "page-top": "72", "copies": "2",
    "print-scaling": "fit",
}


def maker(ppd):
    """The description with every two-sided option set so that its default prints on both sides."""
    for option in {match[1] for match in TWO_SIDED_OPTION.finditer(ppd)}:
        choices = re.findall(rb"^\*" + option + rb"[ \t]+([^/:\s]+)", ppd, re.MULTILINE)
        chosen = next((choice for choice in choices if TWO_SIDED.match(choice.decode("latin-1"))), None)
        if chosen:
            ppd = re.sub(rb"(^\*Default" + option + rb":[ \t]*)[^\r\n]*", lambda m, to=chosen: m[1] + to, ppd,
                         flags=re.MULTILINE)
    return ppd


def user(queues):
    """Lines of lpoptions."""
    options = " ".join(f"{name}={value}" for name, value in USER.items())
    return "".join(f"Dest {queue} {options}\n" for queue in queues)
