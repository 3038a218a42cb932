"""Why a machine cannot run the rig."""


class CannotRun(Exception):
    """The rig cannot run here. Reported as a skipped test with this reason, never as a passed one."""


SKIP_EXIT_STATUS = 77
