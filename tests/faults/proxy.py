"""Stands between a program and a server, and cuts or stops what goes through."""

import select
import socket
import threading


class Proxy:
    def __init__(self, port):
        self.server = ("127.0.0.1", port)
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        self.left = None
        self.cuts = 0
        self.silent = threading.Event()
        threading.Thread(target=self.accept, daemon=True).start()

    def cut_after(self, answered):
        """The connection that gets that many bytes from the server from here on is cut; once."""
        self.left = answered

    def accept(self):
        while True:
            client, _ = self.listener.accept()
            threading.Thread(target=self.forward, args=(client,), daemon=True).start()

    def forward(self, client):
        server = socket.create_connection(self.server)
        with client, server:
            while True:
                ready, _, _ = select.select([client, server], [], [], 0.2)
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
            server.sendall(data)
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
