// Shared by both pages: language, kept settings, the stream of read-outs, the wake lock.
// Written for browsers of 2016: no modules, arrow functions, promises or CSS grids are needed.
var Ferolin = (function () {
  'use strict';

  var WORDS = FerolinWords;

  var STORAGE_KEY = 'ferolin';
  var language = /^ru/i.test(navigator.language || '') ? 'ru' : 'en';

  function element(id) {
    return document.getElementById(id);
  }

  function word(key) {
    return WORDS[language][key];
  }

  /// Writes only what differs: a text that is set anew is laid out anew.
  function setText(node, text) {
    if (node.textContent !== text) {
      node.textContent = text;
    }
  }

  function forEach(list, work) {
    Array.prototype.forEach.call(list, work);
  }

  /// Elements name their words by data-word (text) and data-title (tooltip, screen reader).
  function translate(chosen) {
    language = WORDS[chosen] ? chosen : language;
    document.documentElement.lang = language;
    forEach(document.querySelectorAll('[data-word]'), function (node) {
      setText(node, word(node.getAttribute('data-word')));
    });
    forEach(document.querySelectorAll('[data-title]'), function (node) {
      node.title = word(node.getAttribute('data-title'));
      node.setAttribute('aria-label', node.title);
    });
  }

  function getLanguage() {
    return language;
  }

  /// Defaults where the browser keeps nothing or something of another type.
  function loadSettings(defaults) {
    var stored = {};
    try {
      stored = JSON.parse(localStorage.getItem(STORAGE_KEY)) || {};
    } catch (error) {
      stored = {};
    }
    var settings = {};
    Object.keys(defaults).forEach(function (key) {
      var fits = typeof stored[key] === typeof defaults[key] && stored[key] !== null &&
        Array.isArray(stored[key]) === Array.isArray(defaults[key]);
      settings[key] = fits ? stored[key] : defaults[key];
    });
    return settings;
  }

  /// A private window may refuse; its choices last as long as the page.
  function saveSettings(settings) {
    try {
      localStorage.setItem(STORAGE_KEY, JSON.stringify(settings));
    } catch (error) {
      return;
    }
  }

  /// Milliseconds that no change of the clock disturbs, where the browser has them.
  function now() {
    return window.performance && performance.now ? performance.now() : Date.now();
  }

  /// answer(status, text); status 0: the box was not reached.
  function request(method, path, body, answer) {
    var http = new XMLHttpRequest();
    http.open(method, path);
    http.timeout = 10000;
    if (body) {
      http.setRequestHeader('Content-Type', 'application/json');
    }
    http.onloadend = function () {
      answer(http.status, http.status ? http.responseText : '');
    };
    http.send(body ? JSON.stringify(body) : null);
  }

  // The box sends something every 2 s at least.
  var LOST_AFTER_MS = 5000;
  var RETRY_MS = 1500;

  /// The stream of events; asks once a second where the browser has no EventSource. It is closed
  /// while the page is hidden: browsers allow six connections to one host.
  /// handlers: functions by event name. changed(): the state below is another one.
  function Stream(path, handlers, changed) {
    var self = this;
    var source = null;
    var retry = null;
    self.state = 'connecting';  // 'open', 'unreached', 'refused', 'full'
    self.heardAt = now();

    function enter(state) {
      if (self.state !== state) {
        self.state = state;
        changed();
      }
    }

    function close() {
      clearTimeout(retry);
      if (source) {
        source.close();
        source = null;
      }
    }

    function openLater() {
      close();
      retry = setTimeout(open, RETRY_MS);
    }

    function hear(name, text) {
      self.heardAt = now();
      enter('open');
      handlers[name](JSON.parse(text));
    }

    /// EventSource does not tell why it failed.
    function fail() {
      close();
      request('GET', '/api/readouts', null, function (status) {
        if (document.hidden || source) {
          return;
        }
        if (status !== 200) {
          enter({ 401: 'refused', 403: 'refused', 429: 'full', 503: 'full' }[status] || 'unreached');
        }
        openLater();
      });
    }

    function poll() {
      request('GET', '/api/readouts', null, function (status, text) {
        if (document.hidden) {
          return;
        }
        if (status === 200) {
          hear('update', text);
          retry = setTimeout(open, 1000);
        } else {
          fail();
        }
      });
    }

    function open() {
      close();
      if (!window.EventSource) {
        poll();
        return;
      }
      self.heardAt = now();
      source = new EventSource(path);
      Object.keys(handlers).forEach(function (name) {
        source.addEventListener(name, function (event) {
          hear(name, event.data);
        });
      });
      source.onerror = fail;
    }

    document.addEventListener('visibilitychange', function () {
      if (document.hidden) {
        close();
      } else {
        enter('connecting');
        open();
      }
    });
    window.addEventListener('pagehide', close);
    window.addEventListener('pageshow', function (event) {
      if (event.persisted) {
        open();
      }
    });
    setInterval(function () {
      if (source && now() - self.heardAt > LOST_AFTER_MS) {
        enter('unreached');
        openLater();
      }
    }, 1000);
    if (!document.hidden) {
      open();
    }
  }

  /// Keeps the display awake. changed(key): which of the texts above tells how it went.
  function keepAwake(changed) {
    var lock = null;
    if (!navigator.wakeLock) {
      changed(window.isSecureContext === false ? 'awakeInsecure' : 'awakeMissing');
      return;
    }
    function ask() {
      if (document.hidden || lock) {
        return;
      }
      navigator.wakeLock.request('screen').then(function (given) {
        lock = given;
        lock.addEventListener('release', function () {
          lock = null;
        });
        changed('awakeHeld');
      }, function () {
        changed('awakeRefused');
      });
    }
    document.addEventListener('visibilitychange', ask);
    document.addEventListener('click', ask);
    ask();
  }

  function switchFullScreen() {
    var page = document.documentElement;
    if (document.fullscreenElement || document.webkitFullscreenElement) {
      (document.exitFullscreen || document.webkitExitFullscreen).call(document);
    } else {
      (page.requestFullscreen || page.webkitRequestFullscreen).call(page);
    }
  }

  function hasFullScreen() {
    return !!(document.fullscreenEnabled || document.webkitFullscreenEnabled);
  }

  return {
    element: element, word: word, setText: setText, forEach: forEach, translate: translate,
    getLanguage: getLanguage, loadSettings: loadSettings, saveSettings: saveSettings, now: now,
    request: request, Stream: Stream, keepAwake: keepAwake, switchFullScreen: switchFullScreen,
    hasFullScreen: hasFullScreen
  };
})();
