# SPDX-License-Identifier: GPL-3.0-or-later
"""A session manager of the X protocol, by the library that desktops have for it. One a process."""
import ctypes
import os
import select
import tempfile
import threading
from ctypes import CFUNCTYPE, POINTER, Structure, byref, c_char_p, c_int, c_ulong, c_void_p

SAVE_BOTH, INTERACT_NONE = 2, 0


class Callback(Structure):
    _fields_ = [("call", c_void_p), ("data", c_void_p)]


# register, interact request and done, save request, second phase, save done, close, then the
# properties: set, delete, get.
CALLBACKS = Callback * 10


class SessionManager:
    def __init__(self):
        self.folder = tempfile.TemporaryDirectory(prefix="grimoval-session-")
        os.environ["ICEAUTHORITY"] = os.path.join(self.folder.name, "ICEauthority")
        self.ice = ctypes.CDLL("libICE.so.6")
        self.sm = ctypes.CDLL("libSM.so.6")
        for function in (self.ice.IceComposeNetworkIdList, self.ice.IceAcceptConnection,
                         self.sm.SmsGenerateClientID):
            function.restype = c_void_p
        self.clients, self.saved, self.lock = [], threading.Event(), threading.RLock()
        self.connections = []
        self.make_callbacks()
        error = ctypes.create_string_buffer(256)
        if not self.sm.SmsInitialize(b"tests", b"1", self.new_client, None, self.welcome, 256, error):
            raise RuntimeError(error.value)
        count, self.doors = c_int(), POINTER(c_void_p)()
        if not self.ice.IceListenForConnections(byref(count), byref(self.doors), 256, error):
            raise RuntimeError(error.value)
        for door in self.doors[:count.value]:
            self.ice.IceSetHostBasedAuthProc(c_void_p(door), self.welcome)
        self.count = count.value
        names = self.ice.IceComposeNetworkIdList(count, self.doors)
        self.address = next(name for name in ctypes.string_at(names).decode().split(",")
                            if name.startswith("local/"))
        self.open = True
        self.thread = threading.Thread(target=self.serve, daemon=True)
        self.thread.start()

    def make_callbacks(self):
        """Each is kept for as long as the library may call it."""
        kept = self.kept = []

        def callback(result, *kinds):
            def wrap(function):
                made = CFUNCTYPE(result, *kinds)(function)
                kept.append(made)
                return made
            return wrap

        @callback(c_int, c_char_p)
        def welcome(_):
            return 1

        @callback(c_int, c_void_p, c_void_p, c_char_p)
        def register(client, _, previous):
            if previous:
                return 0
            name = self.sm.SmsGenerateClientID(c_void_p(self.sm.SmsGetIceConnection(c_void_p(client))))
            self.sm.SmsRegisterClientReply(c_void_p(client), c_void_p(name))
            self.sm.SmsSaveYourself(c_void_p(client), 1, 0, INTERACT_NONE, 0)
            self.clients.append(client)
            return 1

        @callback(None, c_void_p, c_void_p, c_int)
        def save_done(client, _, __):
            self.saved.set()
            self.sm.SmsSaveComplete(c_void_p(client))

        @callback(None, c_void_p, c_void_p, c_int, c_void_p)
        def close(client, _, __, ___):
            if client in self.clients:
                self.clients.remove(client)

        @callback(None, c_void_p, c_void_p)
        def phase_two(client, _):
            self.sm.SmsSaveYourselfPhase2(c_void_p(client))

        @callback(None, c_void_p, c_void_p, c_int, c_void_p)
        def ignore(*_):
            pass

        @callback(c_int, c_void_p, c_void_p, POINTER(c_ulong), POINTER(CALLBACKS), POINTER(c_char_p))
        def new_client(_, __, mask, calls, ___):
            mask[0] = (1 << 10) - 1
            for place, call in enumerate((register, ignore, ignore, ignore, phase_two, save_done,
                                          close, ignore, ignore, ignore)):
                calls[0][place] = Callback(ctypes.cast(call, c_void_p), None)
            return 1

        @callback(None, c_void_p)
        def broken(_):
            pass  # the library would end the process

        self.ice.IceSetIOErrorHandler(broken)
        self.sm.SmsGetIceConnection.restype = c_void_p
        self.welcome, self.new_client = welcome, new_client

    def serve(self):
        numbers = {self.ice.IceGetListenConnectionNumber(c_void_p(door)): door
                   for door in self.doors[:self.count]}
        while self.open:
            connections = {self.ice.IceConnectionNumber(c_void_p(one)): one
                           for one in self.connections}
            ready = select.select([*numbers, *connections], [], [], 0.05)[0]
            with self.lock:
                for number in ready:
                    if number in numbers:
                        status = c_int()
                        one = self.ice.IceAcceptConnection(c_void_p(numbers[number]), byref(status))
                        if one:
                            self.connections.append(one)
                    else:
                        self.read(connections[number])

    def read(self, connection):
        if self.ice.IceProcessMessages(c_void_p(connection), None, None) == 0:
            return
        self.connections.remove(connection)
        self.clients = [client for client in self.clients
                        if self.sm.SmsGetIceConnection(c_void_p(client)) != connection]
        self.ice.IceSetShutdownNegotiation(c_void_p(connection), 0)
        self.ice.IceCloseConnection(c_void_p(connection))

    def call(self, function, *arguments):
        with self.lock:
            for client in self.clients:
                function(c_void_p(client), *arguments)
                self.ice.IceFlush(c_void_p(self.sm.SmsGetIceConnection(c_void_p(client))))

    def save(self, shutdown):
        """The session is saved, for its end or not; returns when the client has done so."""
        self.saved.clear()
        self.call(self.sm.SmsSaveYourself, SAVE_BOTH, int(shutdown), INTERACT_NONE, 0)
        if not self.saved.wait(5):
            raise RuntimeError("the client does not answer its session manager")

    def stay(self):
        """The end of the session has been called off."""
        self.call(self.sm.SmsShutdownCancelled)

    def die(self):
        self.call(self.sm.SmsDie)

    def close(self):
        self.open = False
        self.thread.join()
        self.folder.cleanup()
