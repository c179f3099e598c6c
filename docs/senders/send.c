/* send HOST PORT VALUE...: sends one record to a station, in its default framing.
   The values are taken as bytes of code page 1252. Build it with: cc -o send send.c */
#define _POSIX_C_SOURCE 200809L
#include <errno.h>
#include <netdb.h>
#include <stdio.h>
#include <string.h>
#include <sys/socket.h>
#include <unistd.h>

/* Says what went wrong where it gives -1. */
static int connect_to(const char* host, const char* port)
{
    struct addrinfo wanted;
    struct addrinfo* found = NULL;
    int line = -1;
    memset(&wanted, 0, sizeof wanted);
    wanted.ai_socktype = SOCK_STREAM;
    const int unknown = getaddrinfo(host, port, &wanted, &found);
    if (unknown != 0) {
        fprintf(stderr, "send: %s port %s: %s\n", host, port, gai_strerror(unknown));
        return -1;
    }
    for (struct addrinfo* at = found; at != NULL && line < 0; at = at->ai_next) {
        line = socket(at->ai_family, at->ai_socktype, at->ai_protocol);
        if (line >= 0 && connect(line, at->ai_addr, at->ai_addrlen) != 0) {
            const int why = errno;
            close(line);
            errno = why;
            line = -1;
        }
    }
    if (line < 0)
        perror("send");
    freeaddrinfo(found);
    return line;
}

static int send_all(int line, const char* bytes, size_t count)
{
    while (count > 0) {
        const ssize_t sent = send(line, bytes, count, MSG_NOSIGNAL);
        if (sent <= 0)
            return -1;
        bytes += sent;
        count -= (size_t)sent;
    }
    return 0;
}

int main(int argc, char** argv)
{
    char record[65536] = "<";
    size_t length = 1;
    if (argc < 4) {
        fprintf(stderr, "usage: send HOST PORT VALUE...\n");
        return 2;
    }
    for (int i = 3; i < argc; i++) {
        const size_t size = strlen(argv[i]);
        /* An empty value takes no position and a delimiter would end the value. */
        if (size == 0 || strpbrk(argv[i], "<+>") != NULL || length + size + 2 > sizeof record) {
            fprintf(stderr, "send: cannot be sent: '%s'\n", argv[i]);
            return 1;
        }
        memcpy(record + length, argv[i], size);
        length += size;
        record[length++] = i + 1 < argc ? '+' : '>';
    }
    const int line = connect_to(argv[1], argv[2]);
    if (line < 0)
        return 1;
    if (send_all(line, record, length) != 0) {
        perror("send");
        return 1;
    }
    return close(line) == 0 ? 0 : 1;
}
