"""An SMS service on loopback: sms_service.py FOLDER [tls]; ends with its input.

Writes its port to FOLDER/port and each request, decoded, to FOLDER/requests. Answers the first
request with FOLDER/reply-1 (the status in the first line, the body behind it), and so on; a status
of 0 is no answer at all.
"""
import http.server
import os
import ssl
import sys
import threading
import time
import urllib.parse

folder = sys.argv[1]


class Service(http.server.BaseHTTPRequestHandler):
    count = 0

    def do_GET(self):
        Service.count += 1
        length = int(self.headers.get("Content-Length", 0))
        address, _, query = self.path.partition("?")
        query = query or self.rfile.read(length).decode()
        encoding = "utf-8" if self.command == "POST" else "latin-1"
        pairs = urllib.parse.parse_qsl(query, True, True, encoding, "strict")
        with open(f"{folder}/requests", "a", encoding="utf-8") as file:
            file.write(f"{self.command} {address}\n")
            file.writelines(f"{name}: {value}\n" for name, value in pairs)
        with open(f"{folder}/reply-{Service.count}", "rb") as file:
            status, _, body = file.read().partition(b"\n")
        if status == b"0":
            time.sleep(600)
        self.send_response(int(status))
        self.send_header("Location", "/elsewhere")
        self.end_headers()
        try:
            self.wfile.write(body)
        except OSError:
            pass  # Whoever asked has heard enough.

    do_POST = do_GET

    def log_message(self, *_):
        pass


server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Service)
if "tls" in sys.argv:
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(f"{folder}/cert.pem", f"{folder}/key.pem")
    server.socket = context.wrap_socket(server.socket, server_side=True)
with open(f"{folder}/port.new", "w", encoding="utf-8") as file:
    file.write(str(server.server_port))
os.rename(f"{folder}/port.new", f"{folder}/port")
threading.Thread(target=lambda: os._exit(len(sys.stdin.read()))).start()
server.serve_forever()
