"use strict";

// The console's page. Everything that comes from records is set as text, never as markup.

const byId = (id) => document.getElementById(id);

const PageOfRecords = 50;
const MostRows = 500;
const CardsShown = 12;
/** The console tells no more at once. */
const MostUnsettled = 50;
const Views = ["now", "history", "send", "counts"];

let forgeryToken = null;
let events = null;
/** The newest records as far as they are known, by their numbers. */
const newest = new Map();
/** What the history is searched by. */
let filter = { text: "", state: "", day: "" };
let shownRecord = null;
/** What had the focus when the details were opened. */
let openedFrom = null;
/** The stations as far as they are known. */
let stations = null;

// ---- Small tools

/** Makes an element. Children are elements or texts. */
function make(tag, attributes = {}, ...children) {
  const element = document.createElement(tag);
  for (const [name, value] of Object.entries(attributes)) {
    if (value !== null && value !== false) element.setAttribute(name, value === true ? "" : value);
  }
  element.append(...children.filter((child) => child !== null));
  return element;
}

function clear(element) {
  element.replaceChildren();
  return element;
}

/** Gives a list these items. What is in it already stays where it is, with its focus. */
function arrange(list, items) {
  const kept = new Set(items);
  for (const item of [...list.children]) if (!kept.has(item)) item.remove();
  items.forEach((item, place) => {
    if (list.children[place] !== item) list.insertBefore(item, list.children[place] ?? null);
  });
}

const twoDigits = (number) => String(number).padStart(2, "0");

/** The machine's own day of a time, as a date field has it. */
function dayOf(date) {
  return `${date.getFullYear()}-${twoDigits(date.getMonth() + 1)}-${twoDigits(date.getDate())}`;
}

/** A time as people read it: today only the time. */
function timeText(iso) {
  const date = new Date(iso);
  const time = `${twoDigits(date.getHours())}:${twoDigits(date.getMinutes())}:${twoDigits(date.getSeconds())}`;
  return dayOf(date) === dayOf(new Date()) ? time : `${dayOf(date)} ${time}`;
}

function startOfDay(day, later = 0) {
  const [year, month, date] = day.split("-").map(Number);
  return new Date(year, month - 1, date + later).toISOString();
}

const Moods = { printed: "good", done: "good", alive: "good", failed: "bad", silent: "bad", missing: "bad", doubtful: "warn", void: "warn" };

function stateMark(state) {
  return make("span", { class: `state ${Moods[state] ?? ""}` }, state);
}

function valuesText(record) {
  return record.values === null ? `(${record.value_count} values, not kept)` : record.values.join(", ");
}

function short(text, most) {
  return text.length > most ? `${text.slice(0, most)} …` : text;
}

function numbersOf(record) {
  return [...new Set(record.cards.flatMap((card) => card.numbers))].join(", ");
}

/** Whose card it is, as a question tells it. */
function aboutOf(record) {
  const numbers = numbersOf(record);
  const told = numbers === "" ? null : numbers.includes(",") ? `Card numbers ${short(numbers, 120)}` : `Card number ${numbers}`;
  return [short(valuesText(record), 120), told];
}

const noStationRuns = () => stations !== null && !stations.some((station) => station.state === "alive");
const isHandedOver = (record) => record.state === "printed" || record.state === "done";
const isUnfinished = (record) => record.state === "received" || record.state === "printing";

/** The record by which this one was printed again since; null where it was not. */
const laterReprintOf = (record) => (record.reprinted_as > record.id ? record.reprinted_as : null);

/** A press on it shows the record. */
function recordLink(id, text = `record ${id}`) {
  const link = make("button", { type: "button", class: "link", "data-record": id }, text);
  link.addEventListener("click", (event) => {
    event.stopPropagation();
    openDetails(id);
  });
  return link;
}

/** What the system says of files, behind the path. */
const SystemErrors = [
  [/: (No space left on device|Disk quota exceeded)$/, "The station has no room left to write the card's file."],
  [/: (Permission denied|Operation not permitted|Read-only file system)$/, "The station may not write the card's file."],
  [/: (Not a directory|Is a directory|File exists|Input\/output error|File name too long|File too large)$/, "The station could not write the card's file."],
  [/: [^:]+$/, "The station could not use a file that it needs."],
];

/** A reason as people read it. What the system says of a file stands behind a plain sentence. */
function plainReason(reason) {
  if (!/^([^:/\n]{1,40}: )?\//.test(reason)) return reason;
  const known = SystemErrors.find(([words]) => words.test(reason));
  return known === undefined ? reason : `${known[1]} (${reason})`;
}

const hasNoFocus = () => document.activeElement === null || [document.body, byId("main")].includes(document.activeElement);

/** Where the focus would be lost, gives it to what shows the record, else to the heading. */
function keepFocus(id) {
  const present = document.activeElement;
  if (!hasNoFocus() && present.checkVisibility() && !present.disabled) return;
  if (byId("ask").open) return;
  if (byId("details").open) {
    byId("details-title").focus();
    return;
  }
  const view = byId(`view-${presentView()}`);
  const shown = id === null ? null : view.querySelector(`[data-id="${id}"] button:enabled, [data-key^="${id}/"] button`);
  (shown ?? view.querySelector("h1")).focus();
}

// ---- Asking the console

class Refused extends Error {
  constructor(status, answer) {
    super(answer.error ?? `The console answered ${status}.`);
    this.status = status;
    this.answer = answer;
  }
}

async function ask(path, body) {
  const options = { headers: {}, cache: "no-store" };
  if (body !== undefined) {
    options.method = "POST";
    options.body = JSON.stringify(body);
    options.headers["Content-Type"] = "application/json";
    if (forgeryToken !== null) options.headers["X-Forgery-Token"] = forgeryToken;
  }
  let response;
  try {
    response = await fetch(path, options);
  } catch {
    noteAway(true);
    throw new Refused(0, { error: "The console cannot be reached." });
  }
  noteBack();
  // A refusal that is none of the console's own may be of any kind.
  const answer = await response.json().catch(() => ({}));
  if (response.ok) return answer;
  if (response.status === 401 && path !== "login" && path !== "logout") endLogin();
  throw new Refused(response.status, answer);
}

/** Runs what a form or a button asks for, while its button waits, and tells why it failed. */
async function attempt(button, told, act) {
  // A button that is disabled would lose the focus.
  if (button.getAttribute("aria-disabled") === "true") return;
  button.setAttribute("aria-disabled", "true");
  forgetAct();
  told.textContent = "";
  told.classList.remove("problem");
  try {
    await act();
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    told.classList.add("problem");
    told.textContent = problem.message;
  } finally {
    button.removeAttribute("aria-disabled");
  }
}

// ---- Login

function showFrame(isIn) {
  for (const id of ["views", "live", "logout"]) byId(id).hidden = !isIn;
  byId("view-login").hidden = isIn;
  if (!isIn) for (const view of Views) byId(`view-${view}`).hidden = true;
}

/** Which start of the console it was that the page has logged in to. */
let consoleRun = null;

function askForLogin(why = "") {
  forgeryToken = null;
  forgetAct();
  awaySince = null;
  isAwayTold = false;
  clearTimeout(awaySoon);
  asked.clear();
  waiting.clear();
  clearTimeout(waitingSoon);
  waitingSoon = null;
  stations = null;
  if (events !== null) events.close();
  events = null;
  clearTimeout(stationsSoon);
  trouble = "";
  showTrouble();
  newest.clear();
  unsettled = [];
  missing.clear();
  // Whoever logs in next asks for all of it anew.
  for (const shown of [byId("cards"), byId("stations"), byId("unsettled-list"), rows]) clear(shown);
  for (const dialog of [byId("ask"), byId("details")]) if (dialog.open) dialog.close();
  showFrame(false);
  document.title = "Log in – Vantrel Console";
  byId("login-told").classList.remove("problem");
  byId("login-told").textContent = why;
  byId("token").focus();
}

function whyLogIn(login) {
  const reason = login.console === consoleRun ? "your login has ended" : "the console was started anew";
  return `Please log in again: ${reason}.`;
}

/** The console has refused what one who is logged in may do. */
async function endLogin() {
  if (forgeryToken === null) return;
  forgeryToken = null;
  askForLogin(whyLogIn(await ask("login").catch(() => ({ console: consoleRun }))));
}

async function begin(takesFocus = false) {
  const wasIn = forgeryToken !== null;
  const login = await ask("login");
  forgeryToken = login.forgery_token;
  if (forgeryToken === null) {
    askForLogin(wasIn ? whyLogIn(login) : "");
    return;
  }
  consoleRun = login.console;
  showFrame(true);
  showView(takesFocus);
  follow();
}

/** Whoever logs in begins at the beginning, whatever the one before has looked for. */
function startAtNow() {
  history.replaceState(null, "", "#now");
  for (const id of ["text", "state", "day"]) byId(id).value = "";
  filter = { text: "", state: "", day: "" };
  isLayoutChosen = false;
}

byId("login").addEventListener("submit", (event) => {
  event.preventDefault();
  const token = byId("token");
  attempt(event.submitter ?? event.target.querySelector("button"), byId("login-told"), async () => {
    try {
      await ask("login", { token: token.value });
    } catch (problem) {
      token.focus();
      token.select();
      throw problem;
    }
    token.value = "";
    startAtNow();
    await begin(true);
  });
});

byId("logout").addEventListener("click", async () => {
  try {
    await ask("logout", {});
  } finally {
    askForLogin();
  }
});

// ---- Views

function presentView() {
  const name = location.hash.slice(1);
  return Views.includes(name) ? name : "now";
}

function showView(takesFocus = false) {
  if (forgeryToken === null) return;
  const present = presentView();
  for (const view of Views) byId(`view-${view}`).hidden = view !== present;
  for (const link of byId("views").querySelectorAll("a")) {
    if (link.hash === `#${present}`) link.setAttribute("aria-current", "page");
    else link.removeAttribute("aria-current");
  }
  tellNeeds();
  if (takesFocus) byId(`title-${present}`).focus();
  // What became of the last one is told until another page is looked at.
  forgetAct();
  // Before the page follows what happens, it asks for all of it anyway.
  if (present === "now" && events !== null) loadUnsettled();
  if (present === "send") loadLayouts();
  if (present === "counts") loadCounts();
}

/** Tells how many records need somebody where it is seen from everywhere. */
function tellNeeds() {
  const count = unsettled.length === 0 ? "" : unsettled.length < MostUnsettled ? ` (${unsettled.length})` : ` (${unsettled.length}+)`;
  byId("views").querySelector('a[href="#now"]').textContent = `Now${count}`;
  const present = presentView();
  const title = byId(`title-${present}`).textContent;
  document.title = present === "now" ? `${title}${count} – Vantrel Console` : `${title} – Now${count} – Vantrel Console`;
  if (present !== "now" && count === "") document.title = `${title} – Vantrel Console`;
}

window.addEventListener("hashchange", () => {
  if (location.hash === "#main") return;
  showView(true);
});

// ---- Live events

function tellLive(isOn) {
  const live = byId("live");
  live.classList.toggle("on", isOn);
  live.textContent = isOn ? "Live" : "Connecting …";
}

function follow() {
  tellLive(false);
  events = new EventSource("api/v1/events");
  events.addEventListener("open", () => {
    tellLive(true);
    noteBack();
    loadWaiting();
    loadStations();
    loadRecords();
    loadUnsettled();
  });
  events.addEventListener("error", () => {
    tellLive(false);
    noteAway(false);
    // The browser tries again by itself, unless the console has refused it.
    if (events !== null && events.readyState === EventSource.CLOSED) {
      events = null;
      setTimeout(() => {
        if (forgeryToken !== null) begin().catch(() => follow());
      }, 1000);
    }
  });
  events.addEventListener("records", (event) => takeRecords(JSON.parse(event.data).records));
  events.addEventListener("more", loadAllSoon);
  events.addEventListener("trouble", (event) => {
    tellTrouble(JSON.parse(event.data).text);
    loadStations();
  });
  events.addEventListener("stations", (event) => showStations(JSON.parse(event.data).stations));
}

let trouble = "";
/** Tells why nothing can be known now, and when it can be again, asks for what came meanwhile. */
function tellTrouble(text) {
  const isOver = trouble !== "" && text === "";
  trouble = text;
  showTrouble();
  if (!isOver) return;
  askForPictures();
  loadAllSoon();
}

function showTrouble() {
  const away = awaySince === null || !isAwayTold ? "" :
    `The console does not answer since ${timeText(awaySince).slice(0, -3)}. What you see is of then. The page goes on by itself.`;
  const text = away || (trouble === "" ? "" : `${trouble} The page goes on by itself.`);
  const told = byId("trouble");
  told.hidden = text === "";
  if (told.textContent !== text) told.textContent = text;
  byId("stations").classList.toggle("stale", text !== "");
}

/** Since when the console does not answer; null while it does. */
let awaySince = null;
let isAwayTold = false;
let awaySoon = null;
/** How long a connection may be broken before it is told. */
const AwayRest = 2500;

function noteAway(isTold) {
  awaySince ??= new Date();
  clearTimeout(awaySoon);
  const tell = () => {
    isAwayTold = awaySince !== null;
    showTrouble();
  };
  if (isTold || isAwayTold) {
    tell();
    // Another answer may come before the page would ask for one.
    awaySoon = setTimeout(() => ask("login").catch(() => {}), 3000);
  } else awaySoon = setTimeout(tell, Math.max(0, awaySince.getTime() + AwayRest - Date.now()));
}

function noteBack() {
  if (awaySince === null) return;
  awaySince = null;
  isAwayTold = false;
  clearTimeout(awaySoon);
  showTrouble();
  askForPictures();
}

let allSoon = null;
/** Where too many records come to be told, those who look on do not all ask at once and all the time. */
function loadAllSoon() {
  allSoon ??= setTimeout(() => {
    allSoon = null;
    loadRecords();
    loadUnsettled();
    loadWaiting();
  }, 1000 + 1000 * Math.random());
}

/** For each question that waits for its answer, the records that events have told since it was asked. */
const toldSinceAsked = new Set();

/** Records in their present state: an answer may be older than what events tell while it is on its way. */
async function askRecords(path) {
  const told = new Map();
  toldSinceAsked.add(told);
  try {
    const { records } = await ask(path);
    return { records: records.map((record) => told.get(record.id) ?? record), told: [...told.values()] };
  } finally {
    toldSinceAsked.delete(told);
  }
}

const isFiltered = () => filter.text !== "" || filter.state !== "" || filter.day !== "";

function takeRecords(records) {
  for (const told of toldSinceAsked) for (const record of records) told.set(record.id, record);
  for (const record of records) newest.set(record.id, record);
  noteProgress(records);
  showCardsSoon();
  if (!isFiltered()) {
    for (const record of [...records].reverse()) putRow(record);
  } else {
    for (const record of records) replaceRow(record);
    searchSoon();
  }
  if (records.some(concernsUnsettled)) loadUnsettledSoon();
  if (shownRecord !== null && records.some((record) => record.id === shownRecord)) loadDetails(shownRecord);
}

// ---- Now

let stationsSoon = null;
async function loadStations() {
  try {
    showStations((await ask("api/v1/stations")).stations);
    tellTrouble("");
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    if (problem.status !== 503) return;
    tellTrouble(problem.message);
    clearTimeout(stationsSoon);
    stationsSoon = setTimeout(loadStations, 5000);
  }
}

function stationTold(station) {
  if (station.state === "missing") return "It should run, and never said that it does.";
  if (station.state === "silent") return `It last said that it runs at ${timeText(station.seen)}.`;
  if (station.state === "ended") return `It ended at ${timeText(station.seen)}.`;
  const layout = station.layout === "" ? "No layout is open" : `Layout ${station.layout}`;
  return station.printer === "" ? layout : `${layout}, printer ${station.printer}`;
}

function showStations(present) {
  stations = present;
  presetLayout();
  tellAct();
  showPanel();
  const list = clear(byId("stations"));
  for (const station of stations) {
    list.append(
      make(
        "li",
        {},
        make("div", { class: "name" }, `Session ${station.session}`, stateMark(station.state)),
        make("p", {}, station.machine),
        make("p", {}, stationTold(station)),
      ),
    );
  }
  if (stations.length === 0) list.append(make("li", {}, "No station has run here yet."));
}

/** The records that need somebody. */
let unsettled = [];

async function loadUnsettled() {
  try {
    unsettled = (await ask("api/v1/unsettled")).records;
    showPanel();
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
  }
}

/** Whether a record that came or changed may have to be listed, or need not be any longer. */
function concernsUnsettled(record) {
  return ["failed", "doubtful"].includes(record.state) || record.reprint_of !== null ||
    unsettled.some((known) => known.id === record.id);
}

let unsettledSoon = null;
function loadUnsettledSoon() {
  unsettledSoon ??= setTimeout(() => {
    unsettledSoon = null;
    loadUnsettled();
  }, 200);
}

function reasonOf(record) {
  return plainReason(record.reason || record.cards.map((card) => card.reason).find((reason) => reason) || Warnings[record.state] || "");
}

function makeUnsettled(record) {
  const again = make("button", { type: "button", class: "main", "aria-label": `Print again … record ${record.id}` }, "Print again …");
  again.disabled = record.values === null;
  again.addEventListener("click", () => attempt(again, byId("unsettled-told"), () => printAgain(record.id)));
  return make(
    "li",
    { "data-id": record.id, "data-key": `needs/${record.id}` },
    make("div", { class: "told" },
      make("p", {}, recordLink(record.id, `Record ${record.id}`), " ", stateMark(record.state), " ", make("span", { class: "who" }, valuesText(record))),
      make("p", { class: "why" }, [timeText(record.received), record.layout, reasonOf(record)].filter((text) => text).join(" · "))),
    again,
  );
}

function makeWaiting(record) {
  return make(
    "li",
    { "data-id": record.id, "data-key": `waits/${record.id}` },
    make("div", { class: "told" },
      make("p", {}, recordLink(record.id, `Record ${record.id}`), " waits to be printed: ", make("span", { class: "who" }, valuesText(record))),
      make("p", { class: "why" })),
  );
}

const recordsAre = (count, one, more) => (count === 1 ? `1 record ${one}` : `${count} records ${more}`);

function panelTitle(needing, waits) {
  const orMore = (count) => (count < MostUnsettled ? count : `${count} or more`);
  if (needing > 0 && waits > 0) return `${recordsAre(orMore(needing), "needs you", "need you")}, ${orMore(waits)} ${waits === 1 ? "waits" : "wait"} to be printed`;
  if (needing > 0) return recordsAre(orMore(needing), "needs you", "need you");
  if (waits > 0) return recordsAre(orMore(waits), "waits to be printed", "wait to be printed");
  return "Nothing else needs you";
}

/** Shows what needs a person, what waits, and what became of what was asked for just now. */
function showPanel() {
  const list = byId("unsettled-list");
  const present = new Map([...list.children].map((item) => [item.dataset.key, item]));
  const waits = shownToWait();
  const items = [
    ...unsettled.map((record) => present.get(`needs/${record.id}`) ?? makeUnsettled(record)),
    ...waits.map((record) => present.get(`waits/${record.id}`) ?? makeWaiting(record)),
  ];
  const hint = noStationRuns() ? " · No station is running; the card waits until one is started." : "";
  waits.forEach((record, place) => {
    const why = items[unsettled.length + place].querySelector(".why");
    const text = `${timeText(record.received)} · ${record.layout}${hint}`;
    if (why.textContent !== text) why.textContent = text;
  });
  const hadFocus = list.contains(document.activeElement);
  arrange(list, items);
  const title = panelTitle(unsettled.length, waits.length);
  if (byId("title-unsettled").textContent !== title) byId("title-unsettled").textContent = title;
  const panel = byId("unsettled");
  const isPrinted = act !== null && isHandedOver(act.record);
  panel.classList.toggle("settled", items.length === 0 && isPrinted);
  panel.classList.toggle("waits", unsettled.length === 0 && !(items.length === 0 && isPrinted));
  panel.hidden = items.length === 0 && byId("unsettled-told").textContent === "";
  if (hadFocus && !list.contains(document.activeElement)) (list.querySelector(".main") ?? (panel.hidden ? byId("title-now") : byId("title-unsettled"))).focus();
  if (forgeryToken !== null) tellNeeds();
}

// ---- What waits to be printed

/** Most records are printed at once. These wait longer than this, or were asked for here. */
const WaitingRest = 3000;
/** Records that wait to be printed, by their numbers, and since when this page knows it. */
const waiting = new Map();
/** Records that were asked for here and are neither printed nor failed yet. */
const asked = new Set();
let waitingSoon = null;

function shownToWait() {
  const now = performance.now();
  return [...waiting.values()]
    .filter(({ record, since }) => asked.has(record.id) || now - since >= WaitingRest)
    .map(({ record }) => record)
    .sort((one, other) => other.id - one.id);
}

function noteWaiting(record, since = performance.now()) {
  const isWaiting = record.state === "received" || (record.state === "printing" && asked.has(record.id));
  if (isWaiting) waiting.set(record.id, { record, since: waiting.get(record.id)?.since ?? since });
  else waiting.delete(record.id);
  if (!isUnfinished(record)) asked.delete(record.id);
}

function loadWaitingSoon() {
  if (waiting.size > 0 || asked.size > 0) waitingSoon ??= setTimeout(loadWaiting, WaitingRest);
}

/** A record that was asked for here; nothing for one that was removed meanwhile. */
async function askForAsked(id) {
  try {
    return await ask(`api/v1/records/${id}?brief=1`);
  } catch (problem) {
    if (!(problem instanceof Refused) || problem.status !== 404) throw problem;
    asked.delete(id);
    waiting.delete(id);
    return null;
  }
}

/** Asks for what waits as long as anything does: what has waited for long is not told by events. */
async function loadWaiting() {
  clearTimeout(waitingSoon);
  waitingSoon = null;
  try {
    const { records } = await askRecords(`api/v1/records?state=received&brief=1&limit=${MostUnsettled}`);
    const present = new Set(records.map((record) => record.id));
    for (const id of waiting.keys()) if (!present.has(id) && !asked.has(id)) waiting.delete(id);
    for (const record of records) noteWaiting(record, performance.now() - Math.max(0, Date.now() - Date.parse(record.received)));
    const others = [...asked].filter((id) => !present.has(id)).slice(0, 10);
    takeProgress((await Promise.all(others.map(askForAsked))).filter((record) => record !== null));
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
  }
  tellAct();
  showPanel();
  if (events !== null) loadWaitingSoon();
}

// ---- What was asked for last

/** A record that was printed again or sent by hand just now: it is told what becomes of it. */
let act = null;
const ActPlaces = ["unsettled-told", "details-told", "sent"];

function forgetAct() {
  act = null;
  for (const id of ActPlaces) {
    byId(id).replaceChildren();
    byId(id).classList.remove("problem");
  }
  showPanel();
}

/** @param record  what was asked for, as it will be in the ledger */
function beginAct(record, more) {
  asked.add(record.id);
  // Events may be quicker than the answer.
  act = { record: newest.get(record.id) ?? record, since: performance.now(), told: "", ...more };
  noteWaiting(act.record);
  tellAct();
  showPanel();
  loadWaitingSoon();
}

function wordsOfAct() {
  const { record, of, wasFailed, who, session } = act;
  const link = recordLink(record.id, `Record ${record.id}`);
  const isLate = performance.now() - act.since >= WaitingRest;
  if (isHandedOver(record)) return of === undefined ? [link, " is printed."] : [link, " is printed: it replaces ", recordLink(of), "."];
  if (record.state === "failed") return [link, wasFailed ? " failed again: " : " failed: ", reasonOf(record)];
  if (record.state === "doubtful") return [link, " is doubtful. ", Warnings.doubtful];
  if (record.state === "void") return [link, " was declared void."];
  if (noStationRuns()) return [link, " waits to be printed: no station is running."];
  if (isLate && record.state === "received") return [link, " still waits to be printed."];
  return of === undefined ? ["Sent as ", recordLink(record.id), ` to session ${session}.`] : [link, ` was sent to be printed again for ${who}.`];
}

/** Tells it where it was asked for. What is told already stays, with its focus. */
function tellAct() {
  if (act === null) return;
  const words = wordsOfAct();
  const text = words.map((word) => word.textContent ?? word).join("");
  if (text === act.told) return;
  act.told = text;
  const places = act.of === undefined ? ["sent"] : shownRecord === null ? ["unsettled-told"] : ["unsettled-told", "details-told"];
  for (const id of places) {
    const place = byId(id);
    const focused = place.contains(document.activeElement) ? document.activeElement.dataset.record : null;
    place.replaceChildren(...wordsOfAct(), act.note ?? "");
    place.classList.toggle("problem", act.record.state === "failed");
    if (focused !== null) (place.querySelector(`[data-record="${focused}"]`) ?? place.querySelector("button"))?.focus();
  }
}

/** Follows records that came or changed. */
function takeProgress(records) {
  for (const record of records) {
    noteWaiting(record);
    if (act !== null && record.id === act.record.id) act.record = record;
    else if (act !== null && !isUnfinished(act.record) && record.state === "failed" && !unsettled.some((known) => known.id === record.id) &&
      record.id > act.record.id) forgetAct();
  }
}

function noteProgress(records) {
  takeProgress(records);
  tellAct();
  showPanel();
  loadWaitingSoon();
}

// ---- Cards

/** Asks for the newest records and for what is searched for, which mostly are the same. */
function loadRecords() {
  loadNewest();
  if (isFiltered()) search();
}

/** Shows the newest cards and, where nothing certain is searched for, the same records in the history. */
async function loadNewest() {
  const number = isFiltered() ? null : ++searching;
  try {
    const answer = await askRecords(`api/v1/records?brief=1&limit=${PageOfRecords}`);
    newest.clear();
    for (const record of [...answer.records, ...answer.told]) newest.set(record.id, record);
    showCards();
    if (number === searching) showFound(answer);
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    if (number === searching) byId("found").textContent = problem.message;
  }
}

/** The place of a picture, which tells so where there is none. */
function cardPicture(record, index, alt) {
  const place = make("span", { class: "picture" });
  const image = make("img", { alt, loading: "lazy", decoding: "async" });
  image.addEventListener("error", async () => {
    const isKnown = await ask(image.getAttribute("src")).then(() => true, (problem) => problem.status === 404);
    // Another one may have been asked for meanwhile.
    if (!isKnown) missing.set(place, image);
    place.replaceChildren(isKnown ? "No picture is kept." : "The picture is shown when the console answers again.");
  });
  image.src = `api/v1/records/${record.id}/cards/${index + 1}.png`;
  place.append(image);
  return place;
}

/** Places of pictures that could not be had, and the pictures. */
const missing = new Map();

function askForPictures() {
  for (const [place, image] of missing) {
    if (!place.isConnected) continue;
    const path = image.getAttribute("src");
    image.removeAttribute("src");
    image.src = path;
    place.replaceChildren(image);
  }
  missing.clear();
}

function newestCards() {
  for (const id of [...newest.keys()].sort((one, other) => other - one).slice(PageOfRecords)) newest.delete(id);
  const cards = [];
  for (const id of [...newest.keys()].sort((one, other) => other - one)) {
    const record = newest.get(id);
    record.cards.forEach((card, index) => {
      if (cards.length < CardsShown) cards.push({ key: `${id}/${index}`, record, card, index });
    });
  }
  return cards;
}

/** Shows the newest cards; what is shown already keeps its picture and the focus. */
function showCards() {
  const list = byId("cards");
  const present = new Map([...list.children].map((item) => [item.dataset.key, item]));
  const cards = newestCards();
  const items = cards.map(({ key, record, card, index }) => {
    const item = present.get(key) ?? makeCard(key, record, index);
    const mark = item.querySelector(".state");
    if (mark.textContent !== card.state) mark.replaceWith(stateMark(card.state));
    item.querySelector(".when").textContent = `${timeText(record.received)}, ${card.layout}`;
    return item;
  });
  arrange(list, items);
  byId("no-cards").hidden = items.length > 0;
}

const CardsRest = 500;
let cardsSoon = null;
let cardsShown = -CardsRest;
/** Where record follows record, a picture is not asked for that is replaced at once. */
function showCardsSoon() {
  cardsSoon ??= setTimeout(() => {
    cardsSoon = null;
    cardsShown = performance.now();
    showCards();
  }, Math.max(0, cardsShown + CardsRest - performance.now()));
}

function makeCard(key, record, index) {
  const who = valuesText(record);
  const button = make(
    "button",
    { type: "button" },
    cardPicture(record, index, `Card ${index + 1} of record ${record.id}`),
    make("span", { class: "what" }, make("span", { class: "who" }, who), stateMark(record.cards[index].state)),
    make("span", { class: "when" }),
  );
  button.addEventListener("click", () => openDetails(record.id));
  return make("li", { "data-key": key }, button);
}

// ---- History

function queryOf(before) {
  const query = new URLSearchParams({ brief: "1", limit: String(PageOfRecords) });
  if (filter.text !== "") query.set("text", filter.text);
  if (filter.state !== "") query.set("state", filter.state);
  if (filter.day !== "") {
    query.set("since", startOfDay(filter.day));
    query.set("until", startOfDay(filter.day, 1));
  }
  if (before !== null) query.set("before", String(before));
  return `api/v1/records?${query}`;
}

const rows = byId("records").tBodies[0];
let searching = 0;
let soon = null;

/** Where a record is from, and what became of it later. */
function sourceTold(record) {
  const later = laterReprintOf(record);
  return [
    record.reprint_of === null ? make("span", { class: "address" }, ...addressTold(record.source)) : make("span", {}, "reprint of ", recordLink(record.reprint_of, String(record.reprint_of))),
    later === null ? null : make("span", { class: "later" }, "printed again as ", recordLink(later)),
  ].filter((part) => part !== null);
}

/** An address may be broken before its port, and nowhere else. */
function addressTold(source) {
  const colon = source.lastIndexOf(":");
  return /:\d+$/.test(source) ? [source.slice(0, colon), make("wbr"), make("span", { class: "port" }, source.slice(colon))] : [source];
}

function rowOf(record) {
  const open = make("button", { type: "button", class: "link" }, String(record.id));
  const row = make(
    "tr",
    { role: "row", "data-id": record.id },
    make("th", { role: "rowheader", scope: "row" }, open),
    make("td", { role: "cell" }, stateMark(record.state)),
    make("td", { role: "cell", class: "when" }, timeText(record.received)),
    make("td", { role: "cell", class: "layout" }, record.layout),
    make("td", { role: "cell", class: "values" }, valuesText(record)),
    make("td", { role: "cell", class: "numbers" }, numbersOf(record)),
    make("td", { role: "cell", class: "source" }, ...sourceTold(record)),
  );
  row.addEventListener("click", () => openDetails(record.id));
  return row;
}

const rowWith = (id) => rows.querySelector(`tr[data-id="${id}"]`);

function replaceRow(record) {
  const row = rowWith(record.id);
  if (row === null) return false;
  const hadFocus = row.contains(document.activeElement);
  const next = rowOf(record);
  row.replaceWith(next);
  if (hadFocus) next.querySelector("button").focus();
  return true;
}

function putRow(record) {
  if (replaceRow(record)) return;
  const behind = [...rows.children].find((row) => Number(row.dataset.id) < record.id) ?? null;
  // One that is older than all that is shown belongs to what was not asked for yet.
  if (behind === null && rows.children.length > 0) return;
  rows.insertBefore(rowOf(record), behind);
  while (rows.children.length > MostRows) rows.lastElementChild.remove();
  tellFound();
}

function tellFound() {
  const count = rows.children.length;
  const isWhole = byId("older").hidden;
  const records = count === 1 ? "1 record" : `${count} records`;
  byId("found").textContent = count === 0 ? "No record was found." : isWhole ? `${records}.` : `The newest ${records}.`;
}

/** Shows what a search has found, behind the rows that are there where it went on from one. */
function showFound({ records, told }, before = null) {
  const focused = rows.contains(document.activeElement) ? document.activeElement.closest("tr").dataset.id : null;
  if (before === null) clear(rows);
  rows.append(...records.map(rowOf));
  if (focused !== null) keepFocus(focused);
  byId("older").hidden = records.length < PageOfRecords || rows.children.length >= MostRows;
  // Where something is searched for, another search follows what events tell.
  if (!isFiltered()) for (const record of told) putRow(record);
  tellFound();
}

async function search(before = null) {
  const number = ++searching;
  try {
    const answer = await askRecords(queryOf(before));
    if (number === searching) showFound(answer, before);
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    byId("found").textContent = problem.message;
  }
}

function searchSoon() {
  if (soon !== null) return;
  soon = setTimeout(() => {
    soon = null;
    search();
  }, 1000);
}

byId("search").addEventListener("submit", (event) => {
  event.preventDefault();
  filter = { text: byId("text").value, state: byId("state").value, day: byId("day").value };
  search();
});
byId("search").addEventListener("reset", () => {
  filter = { text: "", state: "", day: "" };
  search();
});
byId("older").addEventListener("click", () => search(Number(rows.lastElementChild.dataset.id)));

// ---- One record

function pairs(entries) {
  const list = make("dl");
  for (const [name, value] of entries) {
    if (value !== "" && value !== null) list.append(make("dt", {}, name), make("dd", {}, value));
  }
  return list;
}

const PartsTold = ["value", "start", "separator", "end", "filtered", "dropped"];

/** Characters that cannot be seen are shown by their codes, as in the station's settings. */
function visible(text) {
  return text.replace(/[\u0000-\u001f\u007f]/g, (control) => `[${control.charCodeAt(0).toString(16).toUpperCase()}]`);
}

/** The first word of its name, such as "filtered". */
function classOfPart(part) {
  const word = part.split(" ")[0];
  return PartsTold.includes(word) ? `part-${word}` : null;
}

function rawView(parts) {
  const used = [...new Set(parts.map((piece) => piece.part))];
  return [
    make("h3", {}, "The record as it came"),
    make(
      "pre",
      { class: "raw", tabindex: "0", role: "region", "aria-label": "The record as it came" },
      ...parts.map((piece) => make("span", { class: classOfPart(piece.part), title: piece.part }, visible(piece.text))),
    ),
    make("p", { class: "legend" }, ...used.map((part) => make("span", { class: classOfPart(part) }, part))),
  ];
}

function cardView(record, card, index) {
  const told = [
    `Page ${card.page}, copy ${card.copy}`,
    card.layout,
    card.printer,
    card.file ?? (card.job === null ? null : `job ${card.job}`),
    card.numbers.length > 0 ? `card number ${card.numbers.join(", ")}` : null,
    timeText(card.changed),
    plainReason(card.reason),
  ].filter((text) => text);
  return make(
    "figure",
    {},
    cardPicture(record, index, `Card ${index + 1} of record ${record.id} as it was printed`),
    make("figcaption", {}, stateMark(card.state), ` ${told.join(" · ")}`),
  );
}

function detailsOf(record, parts) {
  const hasValues = record.values !== null && record.values.length > 0;
  return [
    pairs([
      ["State", stateMark(record.state)],
      ["Reason", plainReason(record.reason)],
      ["Received", timeText(record.received)],
      ["Source", record.source],
      ["Session", String(record.session)],
      ["Layout", record.layout],
      ["Reprint of", record.reprint_of === null ? "" : recordLink(record.reprint_of)],
      ["Printed again as", laterReprintOf(record) === null ? "" : recordLink(laterReprintOf(record))],
    ]),
    make("h3", {}, "Values"),
    hasValues
      ? make("ol", { class: "values" }, ...record.values.map((value) => make("li", {}, visible(value))))
      : make("p", { class: "note" }, record.values === null ? "The values were not kept." : "None."),
    hasValues && record.value_count > record.values.length ? make("p", { class: "note" }, `And ${record.value_count - record.values.length} more.`) : "",
    ...(parts.length > 0 ? rawView(parts) : []),
    make("h3", {}, "Cards"),
    record.cards.length > 0
      ? make("div", { class: "prints" }, ...record.cards.slice(0, 20).map((card, index) => cardView(record, card, index)))
      : make("p", { class: "note" }, "No card was begun."),
  ];
}

async function loadDetails(id) {
  const [record, { parts }] = await Promise.all([ask(`api/v1/records/${id}?brief=1`), ask(`api/v1/records/${id}/parts`)]);
  if (shownRecord !== id) return;
  byId("details-title").textContent = `Record ${id}`;
  const body = byId("details-body");
  const { scrollTop } = body;
  const hadFocus = body.contains(document.activeElement);
  clear(body).append(...detailsOf(record, parts));
  body.scrollTop = scrollTop;
  if (hadFocus) body.focus({ preventScroll: true });
  byId("reprint").disabled = record.state === "received" || record.state === "printing" || record.values === null;
  byId("void").disabled = record.state === "void" || record.state === "printing";
  byId("details").dataset.state = record.state;
  if (byId("details").open) keepFocus(id);
}

async function openDetails(id) {
  if (!byId("details").open) openedFrom = document.activeElement;
  shownRecord = id;
  byId("details-told").replaceChildren();
  try {
    await loadDetails(id);
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    byId("found").textContent = problem.message;
    return;
  }
  if (!byId("details").open) byId("details").showModal();
  byId("details-body").scrollTop = 0;
  byId("details-title").focus();
}

byId("details-close").addEventListener("click", () => byId("details").close());
byId("details").addEventListener("close", () => {
  const id = shownRecord;
  shownRecord = null;
  // What was pressed with the mouse has no focus, and what was drawn anew meanwhile has lost it.
  if (hasNoFocus() && openedFrom?.isConnected && openedFrom.matches("button, a")) openedFrom.focus();
  openedFrom = null;
  keepFocus(id);
});

/** Asks a question whose default is No. */
function confirmed(title, text, yes, isDangerous = false) {
  byId("ask-title").textContent = title;
  byId("ask-text").textContent = text;
  byId("ask-yes").textContent = yes;
  byId("ask-yes").className = isDangerous ? "danger" : "main";
  const dialog = byId("ask");
  dialog.returnValue = "";
  dialog.showModal();
  byId("ask-no").focus();
  return new Promise((resolve) => {
    dialog.addEventListener("close", () => resolve(dialog.returnValue === "yes"), { once: true });
  });
}
byId("ask-no").addEventListener("click", () => byId("ask").close("no"));
byId("ask-yes").addEventListener("click", () => byId("ask").close("yes"));

const Warnings = {
  printed: "It was printed.",
  done: "It was printed.",
  doubtful: "It is not known whether it was printed: the station ended in between. Look for its card first.",
  void: "It was declared void.",
};

const NoStation = "No station is running; the card waits until one is started.";

/** What a person should know before a record is printed again. */
function beforeAgain(record) {
  const { id, state, reprint_of: first, reprinted_as: reprint } = record;
  if (reprint === null) return Warnings[state];
  return reprint === id ? `It is itself a reprint of record ${first}. ${Warnings[state] ?? ""}` : `It was printed again as record ${reprint} already.`;
}

/** Asks whether a record is to be printed again, has it done and tells what becomes of it. */
async function printAgain(id) {
  const record = await ask(`api/v1/records/${id}?brief=1`);
  const { reprinted_as: reprint } = record;
  const text = [...aboutOf(record), beforeAgain(record), "The card shows the numbers of the first print.", noStationRuns() ? NoStation : null]
    .filter((line) => line).join("\n");
  const [title, yes] = reprint === null ? [`Print record ${id} again?`, "Print again"] : [`Print record ${id} once more?`, "Print once more"];
  if (!(await confirmed(title, text, yes))) {
    keepFocus(id);
    return;
  }
  const added = await ask(`api/v1/records/${id}/reprint`, { again: reprint !== null });
  unsettled = unsettled.filter((known) => known.id !== id);
  beginAct(
    { ...record, id: added.id, state: "received", reason: "", received: new Date().toISOString(), cards: [], reprint_of: id, reprinted_as: null },
    {
      of: id,
      wasFailed: record.state === "failed",
      who: short(valuesText(record), 80),
      note: added.layout_changed ? " Its layout was changed since; the card is printed as it was then." : "",
    },
  );
  loadUnsettledSoon();
  keepFocus(id);
}

byId("reprint").addEventListener("click", (event) => {
  const id = shownRecord;
  attempt(event.currentTarget, byId("details-told"), () => printAgain(id));
});

byId("void").addEventListener("click", (event) => {
  const id = shownRecord;
  const told = byId("details-told");
  attempt(event.currentTarget, told, async () => {
    const record = await ask(`api/v1/records/${id}?brief=1`);
    const waits = record.state === "received" ? "It still waits to be printed and then never is." : null;
    const text = [...aboutOf(record), waits, "This cannot be taken back."].filter((line) => line).join("\n");
    if (!(await confirmed(`Declare record ${id} void?`, text, "Declare void", true))) return;
    await ask(`api/v1/records/${id}/void`, {});
    await loadDetails(id);
    told.textContent = `Record ${id} is void.`;
    loadUnsettledSoon();
  });
});

// ---- Send

let isLayoutChosen = false;
byId("layout").addEventListener("change", () => {
  isLayoutChosen = true;
});

/** Until one is chosen, the layout is the one that a running station has open. */
function presetLayout() {
  const open = stations?.find((station) => station.state === "alive" && station.layout !== "")?.layout;
  if (isLayoutChosen || open === undefined) return;
  const option = [...byId("layout").options].find((one) => one.value === open);
  if (option !== undefined) option.selected = true;
}

async function loadLayouts() {
  const list = byId("layout");
  const chosen = list.value;
  try {
    const { layouts } = await ask("api/v1/layouts");
    clear(list).append(...layouts.map((name) => make("option", { value: name, selected: name === chosen }, name)));
    presetLayout();
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    byId("sent").textContent = problem.message;
  }
}

byId("send").addEventListener("submit", (event) => {
  event.preventDefault();
  const field = byId("values");
  attempt(event.target.querySelector("button"), byId("sent"), async () => {
    const text = field.value.replace(/\n$/, "");
    const values = text.split("\n");
    if (text.trim() === "") {
      field.focus();
      throw new Refused(0, { error: "Write at least one value. A record without values prints an empty card." });
    }
    const layout = byId("layout").value;
    const { id, session } = await ask("api/v1/records", { layout, values });
    field.value = "";
    field.focus();
    beginAct(
      { id, state: "received", received: new Date().toISOString(), session, source: "console", layout, values, value_count: values.length, reason: "", cards: [], reprint_of: null, reprinted_as: null },
      { session },
    );
  });
});

// ---- Counts

const period = { since: byId("since"), until: byId("until") };
{
  const today = new Date();
  period.until.value = dayOf(today);
  period.since.value = dayOf(new Date(today.getFullYear(), today.getMonth(), today.getDate() - 29));
}

async function loadCounts() {
  const told = byId("counted");
  if (period.since.value === "" || period.until.value === "") return;
  try {
    const query = new URLSearchParams({ since: startOfDay(period.since.value), until: startOfDay(period.until.value, 1) });
    const { counts } = await ask(`api/v1/counts?${query}`);
    const body = clear(byId("counts-table").tBodies[0]);
    const cell = (name, kind, text) => make("td", { role: "cell", class: kind, "data-name": name }, text);
    for (const count of counts) {
      body.append(
        make(
          "tr",
          { role: "row" },
          make("th", { role: "rowheader", scope: "row", class: "when" }, count.day),
          cell("Layout", "layout", count.layout),
          ...["issued", "failed", "doubtful", "void", "reprinted"].map((name) => cell(`${name[0].toUpperCase()}${name.slice(1)}`, "number", String(count[name]))),
          cell("Void card numbers", "void-numbers", count.void_numbers.join(", ")),
        ),
      );
    }
    const issued = counts.reduce((sum, count) => sum + count.issued, 0);
    told.textContent = counts.length === 0 ? "No cards in this time." : issued === 1 ? "1 card was issued." : `${issued} cards were issued.`;
  } catch (problem) {
    if (!(problem instanceof Refused)) throw problem;
    told.textContent = problem.message;
  }
}

byId("period").addEventListener("submit", (event) => {
  event.preventDefault();
  loadCounts();
});

begin().catch(() => {
  showFrame(true);
  tellLive(false);
  setTimeout(() => location.reload(), 5000);
});
