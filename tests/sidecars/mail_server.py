"""A mail server on loopback: mail_server.py FOLDER [WORD...]; ends with its standard input.

Writes its port to FOLDER/port and each mail, decoded, to FOLDER/mail-1 and so on. The words:
starttls and tls (the certificate is FOLDER/cert.pem), login (as varek, geheim#=), late (listens
when FOLDER/mailto.log exists), silent (takes calls and says nothing), dumb (says nothing about a
mail), clingy (nor to a farewell), and replies like 450 that refuse one recipient each.
"""
import asyncio
import email
import email.policy
import os
import socket
import ssl
import sys
from aiosmtpd.smtp import SMTP, AuthResult

folder, words = sys.argv[1], sys.argv[2:]
refusals = [word for word in words if word.isdigit()]


def write(name, text):
    with open(f"{folder}/{name}.new", "w", newline="", encoding="utf-8") as file:
        file.write(text)
    os.rename(f"{folder}/{name}.new", f"{folder}/{name}")


class Mails:
    count = 0

    async def handle_RCPT(self, server, session, envelope, address, options):
        if refusals:
            return refusals.pop(0) + " refused by geheim#= here"
        envelope.rcpt_tos.append(address)
        return "250 OK"

    async def handle_DATA(self, server, session, envelope):
        self.count += 1
        mail = email.message_from_bytes(envelope.content, policy=email.policy.default)
        head = envelope.content.split(b"\r\n\r\n")[0].split(b"\r\n")
        people = [mail[key].addresses[0] for key in ("From", "To")]
        lines = [f"{envelope.mail_from} to {' '.join(envelope.rcpt_tos)}",
                 *(f"{who.display_name}|{who.addr_spec}" for who in people), mail["Subject"],
                 " ".join(mail.keys()), mail["Content-Transfer-Encoding"],
                 "secret" if session.ssl or "tls" in words else "open",
                 "login" if session.authenticated else "stranger",
                 "long" if max(map(len, head)) > 78 else "short"]
        write(f"mail-{self.count}", "\n".join(lines) + "\n\n" + mail.get_content())
        if "dumb" in words:
            await asyncio.sleep(600)
        return "250 OK"

    async def handle_QUIT(self, server, session, envelope):
        await asyncio.sleep(600 if "clingy" in words else 0)
        return "221 Bye"


def authenticate(server, session, envelope, mechanism, data):
    known = (data.login, data.password) == (b"varek", b"geheim#=")
    return AuthResult(success=known, handled=False)


async def serve():
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    if "starttls" in words or "tls" in words:
        context.load_cert_chain(f"{folder}/cert.pem", f"{folder}/key.pem")
    mails = Mails()
    loop = asyncio.get_running_loop()
    loop.add_reader(sys.stdin, os._exit, 0)
    listener = socket.socket()
    listener.bind(("127.0.0.1", 0))
    if "late" not in words:
        listener.listen()
    write("port", str(listener.getsockname()[1]))
    while "silent" in words:
        await asyncio.sleep(600)
    while "late" in words and not os.path.exists(f"{folder}/mailto.log"):
        await asyncio.sleep(0.02)
    server = await loop.create_server(
        lambda: SMTP(mails, tls_context=context if "starttls" in words else None,
                     auth_required="login" in words, authenticator=authenticate,
                     auth_require_tls="starttls" in words),
        sock=listener, ssl=context if "tls" in words else None)
    await server.serve_forever()

asyncio.run(serve())
