"""The launchers, and how each is started, summoned and hidden: see Target.h.

The peers are configured as Debian ships them, but for what would be measured as painting.
"""

OPTION_SPACE = "49:524288"  # as the settings spell it: Alt+Space


def targets(pello, null_target):
    """All launchers by name. `pello` and `null_target` are the paths of the programs."""
    own = {"start": f"{pello} --show", "daemon": str(pello), "windowClass": "^pello",
           "caretWidth": 3, "caretHeight": 48}
    summoned = ["warm"]
    slow = {"quiet": 400, "idleSeconds": 10}  # they paint in several goes

    def by_combo(session):
        session.run(pello, "settings", "set", "activation", "keyCombo")
        session.run(pello, "settings", "set", "keyCombo", OPTION_SPACE)

    return {
        "pello": own | {"summonKey": "Alt_L+space", "setup": by_combo},
        "pello-tap": own | {"summonKey": "Super_R", "phases": summoned},
        "pello-cmd": own | {"summon": f"{pello} toggle", "phases": summoned},
        "rofi": {"start": "rofi -no-config -show drun", "windowClass": "rofi"},
        "synapse": slow | {"start": "synapse", "daemon": "synapse --startup",
                           "summonKey": "Control_L+space", "windowClass": "synapse"},
        "kupfer": slow | {"start": "kupfer", "daemon": "kupfer --no-splash",
                          "summonKey": "Control_L+space", "windowClass": "kupfer", "trials": 8},
        "null": {"start": str(null_target), "windowClass": "^null", "phases": ["cold", "key"],
                 "mostDismissals": 1},
    }
