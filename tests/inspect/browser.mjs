// A browser without a window, driven over its debugging pipe: messages are JSON, each ended by a NUL.

import { spawn, spawnSync } from "node:child_process";
import { mkdtempSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { pathToFileURL } from "node:url";

// The first of the known browsers that is installed, or null.
export const findBrowser = () =>
  [process.env.QUORVANE_BROWSER, "chromium", "chromium-browser", "google-chrome"].find(
    (name) => name && spawnSync(name, ["--version"], { stdio: "ignore" }).status === 0,
  ) ?? null;

export const openBrowser = async (program) => {
  const profile = mkdtempSync(join(tmpdir(), "quorvane-page-"));
  const browser = spawn(
    program,
    [
      "--headless=new",
      "--no-sandbox",
      "--disable-gpu",
      "--disable-dev-shm-usage",
      "--no-first-run",
      `--user-data-dir=${profile}`,
      "--remote-debugging-pipe",
      "about:blank",
    ],
    { stdio: ["ignore", "ignore", "ignore", "pipe", "pipe"] },
  );
  const [, , , toBrowser, fromBrowser] = browser.stdio;
  const waiting = new Map(),
    errors = [];
  let last = 0,
    unread = "",
    loaded = () => {};
  fromBrowser.setEncoding("utf8");
  fromBrowser.on("data", (text) => {
    const messages = (unread + text).split("\0");
    unread = messages.pop();
    for (const message of messages.map((one) => JSON.parse(one))) {
      if (message.id) {
        const { resolve, reject } = waiting.get(message.id);
        waiting.delete(message.id);
        if (message.error) reject(new Error(message.error.message));
        else resolve(message.result);
      }
      if (message.method === "Runtime.exceptionThrown")
        errors.push(message.params.exceptionDetails.exception?.description ?? message.params.exceptionDetails.text);
      if (message.method === "Page.loadEventFired") loaded();
    }
  });
  const send = (method, params = {}, sessionId = undefined) =>
    new Promise((resolve, reject) => {
      waiting.set(++last, { resolve, reject });
      toBrowser.write(JSON.stringify({ id: last, method, params, sessionId }) + "\0");
    });

  const { targetInfos } = await send("Target.getTargets");
  const { sessionId } = await send("Target.attachToTarget", {
    targetId: targetInfos.find((one) => one.type === "page").targetId,
    flatten: true,
  });
  const tell = (method, params) => send(method, params, sessionId);
  await tell("Page.enable");
  await tell("Runtime.enable");

  return {
    errors,
    tell,
    open: async (file, { width, height = 1000, dark = false, touch = false }) => {
      await tell("Emulation.setDeviceMetricsOverride", { width, height, deviceScaleFactor: 1, mobile: touch });
      await tell("Emulation.setTouchEmulationEnabled", { enabled: touch });
      await tell("Emulation.setEmulatedMedia", {
        features: [{ name: "prefers-color-scheme", value: dark ? "dark" : "light" }],
      });
      const ready = new Promise((resolve) => {
        loaded = resolve;
      });
      await tell("Page.navigate", { url: pathToFileURL(file).href });
      await ready;
    },
    // The value of an expression of the page.
    value: async (expression) => {
      const { result, exceptionDetails } = await tell("Runtime.evaluate", {
        expression,
        returnByValue: true,
        awaitPromise: true,
      });
      if (exceptionDetails) throw new Error(exceptionDetails.exception?.description ?? exceptionDetails.text);
      return result.value;
    },
    key: async (key) => {
      for (const type of ["keyDown", "keyUp"])
        await tell("Input.dispatchKeyEvent", {
          type,
          key,
          code: key,
          windowsVirtualKeyCode: {
            ArrowLeft: 37,
            ArrowUp: 38,
            ArrowRight: 39,
            ArrowDown: 40,
            Home: 36,
            End: 35,
            Escape: 27,
          }[key],
        });
    },
    type: (text) => tell("Input.insertText", { text }),
    screenshot: async (whole = true) =>
      Buffer.from((await tell("Page.captureScreenshot", { captureBeyondViewport: whole })).data, "base64"),
    pdf: async () => Buffer.from((await tell("Page.printToPDF", { printBackground: true })).data, "base64"),
    close: async () => {
      const ended = new Promise((resolve) => browser.on("exit", resolve));
      await send("Browser.close").catch(() => {});
      await ended;
      rmSync(profile, { recursive: true, force: true, maxRetries: 5 });
    },
  };
};
