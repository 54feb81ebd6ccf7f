"""An X session manager with one client, as far as the end of a session needs it."""

import ctypes
import select
import time

ICE = ctypes.CDLL("libICE.so.6")
SM = ctypes.CDLL("libSM.so.6")
Pointer = ctypes.c_void_p
# Client, data of the manager, and up to three arguments of the message.
MessageProc = ctypes.CFUNCTYPE(ctypes.c_int, Pointer, Pointer, Pointer, Pointer, Pointer)
NewClientProc = ctypes.CFUNCTYPE(ctypes.c_int, Pointer, Pointer, ctypes.POINTER(ctypes.c_ulong),
                                 ctypes.POINTER(Pointer * 20), Pointer)
AnyHost = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_char_p)
IoError = ctypes.CFUNCTYPE(None, Pointer)

REGISTER, SAVE_DONE, MESSAGES = 0, 5, 10  # places in the table of messages
SAVE_LOCAL, SAVE_BOTH, NO_INTERACTION = 1, 2, 0

for function, result, arguments in (
        (ICE.IceListenForConnections, ctypes.c_int, None),
        (ICE.IceComposeNetworkIdList, ctypes.c_char_p, [ctypes.c_int, Pointer]),
        (ICE.IceGetListenConnectionNumber, ctypes.c_int, [Pointer]),
        (ICE.IceSetHostBasedAuthProc, None, [Pointer, AnyHost]),
        (ICE.IceAcceptConnection, Pointer, [Pointer, Pointer]),
        (ICE.IceConnectionNumber, ctypes.c_int, [Pointer]),
        (ICE.IceProcessMessages, ctypes.c_int, [Pointer, Pointer, Pointer]),
        (SM.SmsRegisterClientReply, ctypes.c_int, [Pointer, ctypes.c_char_p]),
        (SM.SmsSaveYourself, None, [Pointer] + 4 * [ctypes.c_int]),
        (SM.SmsDie, None, [Pointer])):
    function.restype, function.argtypes = result, arguments


class SessionManager:
    def __init__(self):
        self.client = None
        self.saves = 0
        self._connections = []
        self._kept = [AnyHost(lambda host: 1), IoError(lambda connection: None),
                      NewClientProc(self._welcome)]
        any_host, ignore, welcome = self._kept
        ICE.IceSetIOErrorHandler(ignore)
        text = ctypes.create_string_buffer(256)
        assert SM.SmsInitialize(b"test", b"1", welcome, None, any_host, 256, text), text.value
        count, listeners = ctypes.c_int(), ctypes.POINTER(Pointer)()
        assert ICE.IceListenForConnections(ctypes.byref(count), ctypes.byref(listeners), 256,
                                           text), text.value
        self._listeners = [listeners[i] for i in range(count.value)]
        for listener in self._listeners:
            ICE.IceSetHostBasedAuthProc(listener, any_host)
        self.address = ICE.IceComposeNetworkIdList(count, listeners).decode()

    def log_out(self):
        """Asks the client to save for a shutdown and, once it has, to end."""
        before = self.saves
        SM.SmsSaveYourself(self.client, SAVE_BOTH, 1, NO_INTERACTION, 0)
        self.serve_until(lambda: self.saves > before)
        SM.SmsDie(self.client)

    def serve_until(self, condition, seconds=20):
        deadline = time.monotonic() + seconds
        while not condition():
            assert time.monotonic() < deadline, "the client does not keep to the protocol"
            numbers = {ICE.IceGetListenConnectionNumber(listener): (self._accept, listener)
                       for listener in self._listeners}
            numbers |= {ICE.IceConnectionNumber(connection): (self._process, connection)
                        for connection in self._connections}
            for number in select.select(list(numbers), [], [], 0.1)[0]:
                action, subject = numbers[number]
                action(subject)

    def _accept(self, listener):
        status = ctypes.c_int()
        connection = ICE.IceAcceptConnection(listener, ctypes.byref(status))
        if connection:
            self._connections.append(connection)

    def _process(self, connection):
        if ICE.IceProcessMessages(connection, None, None) != 0:
            self._connections.remove(connection)

    def _welcome(self, client, _data, mask, callbacks, _reason):
        handlers = {REGISTER: self._register, SAVE_DONE: self._count_save}
        mask[0] = (1 << MESSAGES) - 1
        for place in range(MESSAGES):
            proc = MessageProc(handlers.get(place, lambda *_: 1))
            self._kept.append(proc)
            callbacks[0][2 * place] = ctypes.cast(proc, Pointer)
            callbacks[0][2 * place + 1] = None
        self.client = client
        return 1

    def _register(self, client, *_):
        SM.SmsRegisterClientReply(client, b"1")
        SM.SmsSaveYourself(client, SAVE_LOCAL, 0, NO_INTERACTION, 0)
        return 1

    def _count_save(self, *_):
        self.saves += 1
        return 1
