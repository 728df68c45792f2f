"""Stands between a program and a server, and cuts or stops what goes through."""

import re
import select
import socket
import threading


class Lost(bytes):
    """The last that goes through a connection."""


class Proxy:
    def __init__(self, port):
        self.server = ("127.0.0.1", port)
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        self.left = None
        self.cuts = 0
        self.silent = threading.Event()
        self.closed = threading.Event()
        self.dead = threading.Event()
        self.watched = None
        threading.Thread(target=self.accept, daemon=True).start()

    def cut_after(self, answered):
        """The connection that gets that many bytes from the server from here on is cut; once."""
        self.left = answered

    def at(self, text, do, number=1):
        """`do` is called with what the client says when it says the text for that time; what it
        gives goes on to the server. Once."""
        self.watched = [text, do, number]

    def lose_answer_to(self, text, number=1, delivered=True):
        """The connection is cut when the client has said the text for that time, and the server,
        when it is delivered there, has answered."""
        self.at(text, lambda data: Lost(data if delivered else b""), number)

    def die(self):
        """As a server that has gone: nobody is answered any more."""
        self.closed.set()
        self.dead.set()

    def accept(self):
        while True:
            client, _ = self.listener.accept()
            if self.closed.is_set():
                client.close()
                continue
            threading.Thread(target=self.forward, args=(client,), daemon=True).start()

    def forward(self, client):
        server = socket.create_connection(self.server)
        with client, server:
            while True:
                ready, _, _ = select.select([client, server], [], [], 0.2)
                if self.dead.is_set():
                    return
                if self.silent.is_set():
                    continue
                for end in ready:
                    try:
                        data = end.recv(65536)
                        if not data or not self.passed(data, end, client, server):
                            return
                    except OSError:
                        return

    def passed(self, data, end, client, server):
        if end is client:
            data = self.seen(data)
            server.sendall(data)
            if isinstance(data, Lost):
                self.cuts += 1
                if data:
                    server.recv(65536)
                return False
            return True
        if self.left is not None:
            if len(data) > self.left:
                client.sendall(data[: self.left])
                self.left = None
                self.cuts += 1
                return False
            self.left -= len(data)
        client.sendall(data)
        return True

    def seen(self, data):
        if self.watched is None or not re.search(rb"\b" + self.watched[0], data.upper()):
            return data
        self.watched[2] -= 1
        if self.watched[2] > 0:
            return data
        do = self.watched[1]
        self.watched = None
        return do(data)
