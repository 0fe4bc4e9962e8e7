// The hand-off viewer. Everything it shows is the tool's own output (the drawing, the facts, the
// code, the diffs, the tokens), handed over as data scripts: data/index.js, then one script per
// snapshot as it is opened. The page itself computes only unit conversions and redlines.
(function () {
  'use strict';

  // --- Data scripts ------------------------------------------------------------------------------

  var store = {};
  var waiting = {};
  // A site's scripts carry their facts packed (zlib, in base64): unpacked before anyone sees them.
  function unpack(value) {
    if (!value || typeof value.deflate !== 'string') return Promise.resolve(value);
    var text = atob(value.deflate);
    var bytes = new Uint8Array(text.length);
    for (var i = 0; i < text.length; i++) bytes[i] = text.charCodeAt(i);
    var stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('deflate'));
    return new Response(stream).text().then(JSON.parse);
  }
  window.orvaneData = function (name, packedValue) {
    unpack(packedValue).then(function (value) {
      store[name] = value;
      var callbacks = waiting[name] || [];
      delete waiting[name];
      callbacks.forEach(function (f) { f(value); });
    });
  };

  var loads = 0;
  var pending = {};
  // Runs the script at `path` and gives the value it hands over under `name`; one load at a time
  // for each path.
  function loadScript(path, name, fresh) {
    if (store[name] && !fresh) return Promise.resolve(store[name]);
    if (pending[path] && !fresh) return pending[path];
    delete store[name];
    var promise = pending[path] = new Promise(function (resolve, reject) {
      (waiting[name] = waiting[name] || []).push(resolve);
      var s = document.createElement('script');
      s.src = path + (fresh ? '?n=' + (++loads) : '');
      s.onerror = function () { reject(new Error('cannot load ' + path)); };
      s.onload = function () { s.remove(); };
      document.head.appendChild(s);
    });
    var done = function () { if (pending[path] === promise) delete pending[path]; };
    promise.then(done, done);
    return promise;
  }

  // --- Small helpers -----------------------------------------------------------------------------

  function el(tag, attrs) {
    var node = document.createElement(tag);
    if (attrs) {
      Object.keys(attrs).forEach(function (k) {
        var v = attrs[k];
        if (v === null || v === undefined || v === false) return;
        if (k === 'text') node.textContent = v;
        else if (k === 'className') node.className = v;
        else if (k.slice(0, 2) === 'on') node.addEventListener(k.slice(2), v);
        else node.setAttribute(k, v === true ? '' : v);
      });
    }
    for (var i = 2; i < arguments.length; i++) {
      var c = arguments[i];
      if (c === null || c === undefined || c === false) continue;
      if (Array.isArray(c)) c.forEach(function (x) { if (x) node.appendChild(typeof x === 'string' ? document.createTextNode(x) : x); });
      else node.appendChild(typeof c === 'string' ? document.createTextNode(c) : c);
    }
    return node;
  }
  var SVG = 'http://www.w3.org/2000/svg';
  function svgEl(tag, attrs) {
    var node = document.createElementNS(SVG, tag);
    Object.keys(attrs || {}).forEach(function (k) {
      if (k === 'text') node.textContent = attrs[k];
      else node.setAttribute(k, attrs[k]);
    });
    return node;
  }

  // A number as the tool writes one: at most four decimals, no trailing zeros, never -0.
  function fmt(n) {
    if (n === null || n === undefined || !isFinite(n)) return '–';
    var s = (Math.round(n * 10000) / 10000).toFixed(4).replace(/\.?0+$/, '');
    return s === '-0' ? '0' : s;
  }

  function copy(text) {
    if (navigator.clipboard && navigator.clipboard.writeText) {
      navigator.clipboard.writeText(text).catch(function () {});
    }
  }
  function copyButton(text) {
    return el('button', {className: 'copy', title: 'Copy', 'aria-label': 'Copy', onclick: function (e) { e.stopPropagation(); copy(typeof text === 'function' ? text() : text); }}, 'copy');
  }

  // --- State and address -------------------------------------------------------------------------

  var scales = {'1x': 1, '2x': 2, '3x': 3, '4x': 4};
  var codeDensity = {'1x': '1x', '2x': '2x', '3x': '3x', '4x': 'xxxhdpi'};
  var S = {
    index: null, base: '', live: false, generation: -1, docGeneration: -1, error: null,
    route: {}, snap: null, snapKey: null, facts: {}, order: [], parents: {},
    units: null, remBase: 16, scale: '1x', zoom: 'fit', tab: 'css',
    overlays: {links: false, grid: false, assets: false}, hover: null, older: null,
    compareResult: null, codeCache: {}
  };

  function parseHash() {
    var out = {};
    location.hash.replace(/^#/, '').split('&').forEach(function (part) {
      if (!part) return;
      var i = part.indexOf('=');
      out[decodeURIComponent(i < 0 ? part : part.slice(0, i))] = i < 0 ? '' : decodeURIComponent(part.slice(i + 1));
    });
    return out;
  }
  function hashOf(route) {
    var keys = ['doc', 'screen', 'component', 'snapshot', 'version', 'compare', 'layer', 'dot'];
    var parts = [];
    keys.forEach(function (k) { if (route[k]) parts.push(k + '=' + encodeURIComponent(route[k])); });
    return '#' + parts.join('&');
  }
  // Moves to `route`: a new entry in the browser's history, so back and forward walk it.
  function go(route) {
    var hash = hashOf(route);
    if (hash === location.hash || (hash === '#' && !location.hash)) { show(route); return; }
    location.hash = hash;
  }
  function update(changes) {
    var route = Object.assign({}, S.route, changes);
    Object.keys(route).forEach(function (k) { if (!route[k]) delete route[k]; });
    go(route);
  }

  // --- Units -------------------------------------------------------------------------------------

  function unitOf(kind) {
    if (S.units === 'dp' && kind === 'font') return 'sp';
    return S.units;
  }
  // A length of the design in the chosen unit at the chosen design scale.
  function length(v) {
    if (v === null || v === undefined) return null;
    var n = v / scales[S.scale];
    if (S.units === 'rem') n = n / (S.remBase > 0 ? S.remBase : 16);
    return n;
  }
  function lengthText(v, kind) {
    var n = length(v);
    return n === null ? '–' : fmt(n) + ' ' + unitOf(kind);
  }

  // --- Redlines: the distances `measure` gives, on the absolute frames ---------------------------

  function edges(r) {
    return {minX: r.x, minY: r.y, maxX: r.x + r.width, maxY: r.y + r.height};
  }
  function contains(o, i) {
    return i.minX >= o.minX && i.maxX <= o.maxX && i.minY >= o.minY && i.maxY <= o.maxY;
  }
  function measure(ra, rb) {
    var a = edges(ra), b = edges(rb);
    var gapX = Math.max(a.minX, b.minX) - Math.min(a.maxX, b.maxX);
    var gapY = Math.max(a.minY, b.minY) - Math.min(a.maxY, b.maxY);
    if (gapX >= 0 || gapY >= 0) {
      return {relation: 'apart', horizontal: Math.max(0, gapX), vertical: Math.max(0, gapY), a: a, b: b};
    }
    if (contains(b, a) || contains(a, b)) {
      var innerIsA = contains(b, a);
      var inner = innerIsA ? a : b, outer = innerIsA ? b : a;
      return {relation: 'inside', inner: inner, outer: outer, top: inner.minY - outer.minY,
              right: outer.maxX - inner.maxX, bottom: outer.maxY - inner.maxY, left: inner.minX - outer.minX};
    }
    return {relation: 'overlap', width: -gapX, height: -gapY, a: a, b: b};
  }

  // --- Start -------------------------------------------------------------------------------------

  function start() {
    var index = store.index;
    var app = document.getElementById('app');
    if (!index) {
      app.textContent = 'The design could not be loaded.';
      return;
    }
    S.live = !!index.live;
    window.addEventListener('hashchange', function () { show(parseHash()); });
    show(parseHash());
    if (S.live) setInterval(poll, 700);
  }

  // The document the page is on: the index of a folder lists several.
  function documentIndex(route) {
    var index = store.index;
    if (!index.folder) { S.base = ''; return Promise.resolve(index); }
    if (!route.doc) return Promise.resolve(null);
    var base = route.doc;
    if (S.base === base && store['index:' + base]) return Promise.resolve(store['index:' + base]);
    S.base = base;
    Object.keys(store).forEach(function (k) { if (k !== 'index' && k.indexOf('index:') !== 0) delete store[k]; });
    return loadScript('data/' + base + 'index.js', 'index', true).then(function (doc) {
      store['index:' + base] = doc;
      store.index = index;
      return doc;
    });
  }

  function show(route) {
    S.route = route;
    documentIndex(route).then(function (doc) {
      S.doc = doc;
      if (!doc) return renderFolder(store.index);
      if (S.units === null) S.units = doc.defaultUnit || 'px';
      if (doc.generation !== undefined) S.docGeneration = doc.generation;
      var snapshotKey = keyFor(route, doc);
      if (snapshotKey) return openSnapshot(snapshotKey, route);
      if (doc.type === 'Snapshot') return openSnapshot(doc.snapshots[0].key, route);
      renderHome(doc);
    }).catch(function (e) {
      document.getElementById('app').textContent = String(e && e.message || e);
    });
  }

  // The snapshot key the route names: a screen or component (its latest version, or the one
  // named), or the snapshot of a snapshot document.
  function keyFor(route, doc) {
    var kind = route.screen ? 'screen' : route.component ? 'component' : null;
    if (!kind) return null;
    var id = route[kind];
    var found = null;
    doc.snapshots.forEach(function (s) {
      if (found || s.kind !== kind || s.collection !== id) return;
      if (!route.version || s.version === route.version) found = s.key;
    });
    return found;
  }
  function entry(key) {
    var found = null;
    S.doc.snapshots.forEach(function (s) { if (s.key === key) found = s; });
    return found;
  }
  function versionsOf(kind, collection) {
    return S.doc.snapshots.filter(function (s) { return s.kind === kind && s.collection === collection; });
  }

  // --- Live: the server says when FILE changed ---------------------------------------------------

  function poll() {
    fetch('api/state', {cache: 'no-store', credentials: 'same-origin'}).then(function (r) { return r.json(); }).then(function (state) {
      if (state.generation === S.generation) return;
      S.generation = state.generation;
      var slot = 0;
      if (store.index.folder) {
        if (!S.base) { reloadFolder(); return; }
        slot = parseInt(S.base.slice(1), 10);
      }
      var docState = state.documents[slot];
      if (!docState) return;
      showError(docState.error);
      // The document the page shows is the reading its index came from.
      if (docState.generation !== S.docGeneration && !docState.error) {
        S.docGeneration = docState.generation;
        reload();
      }
    }).catch(function () {});
  }

  function showError(error) {
    var box = document.querySelector('[data-error]');
    if (!error) { if (box) box.remove(); S.error = null; return; }
    S.error = error;
    var text = 'The document no longer decodes; showing the last one that did. ' + error.message;
    if (!box) {
      box = el('div', {className: 'error', 'data-error': true, role: 'alert'});
      var app = document.getElementById('app');
      app.insertBefore(box, app.firstChild.nextSibling);
    }
    box.textContent = text;
    if (error.line) { box.setAttribute('data-line', error.line); box.setAttribute('data-column', error.column); }
  }

  function reloadFolder() {
    loadScript('data/index.js', 'index', true).then(function () { show(S.route); });
  }

  // Reads the document again and shows the same screen and selection where they still exist.
  function reload() {
    var path = 'data/' + S.base + 'index.js';
    var folderIndex = store.index.folder ? store.index : null;
    Object.keys(store).forEach(function (k) { if (k !== 'index') delete store[k]; });
    S.codeCache = {};
    S.snapKey = null;
    loadScript(path, 'index', true).then(function (doc) {
      if (folderIndex) { store['index:' + S.base] = doc; store.index = folderIndex; }
      var route = Object.assign({}, S.route);
      if (route.version && !keyFor(route, doc)) delete route.version;
      if ((route.screen || route.component) && !keyFor(route, doc)) { delete route.screen; delete route.component; }
      show(route);
      if (S.error) showError(S.error);
    });
  }

  // --- The folder and the project ----------------------------------------------------------------

  function renderFolder(index) {
    var app = document.getElementById('app');
    app.replaceChildren(
      el('header', {className: 'bar'}, el('span', {className: 'title', text: 'Documents'})),
      el('div', {className: 'home'}, el('div', {className: 'inner'},
        el('h1', {text: 'Documents in this folder'}),
        el('ul', {className: 'folder'}, index.folder.map(function (d) {
          return el('li', null, d.ok
            ? el('a', {href: hashOf({doc: d.base}), 'data-document': d.base, text: d.name})
            : [el('span', {text: d.name}), el('div', {className: 'bad', text: d.error || 'does not decode'})]);
        })))));
  }

  // A drawing of the latest version: the server draws each when asked; a site holds them all in
  // one script, given to the image as a blob.
  var thumbURLs = {};
  // Drawings are drawn once they come into view: a browser draws each on its own main thread,
  // and a hundred at once would keep it from opening the screen a person clicked.
  var thumbObserver = null;
  function showThumbnail(img) {
    var key = img.getAttribute('data-thumb');
    if (S.live) { img.src = 'thumbs/' + S.base + key + '.svg'; return; }
    loadScript('data/' + S.base + 'thumbs.js', 'thumbs').then(function (all) {
      if (!all[key]) return;
      thumbURLs[key] = thumbURLs[key] || URL.createObjectURL(new Blob([all[key]], {type: 'image/svg+xml'}));
      img.src = thumbURLs[key];
    });
  }
  function thumbnail(key) {
    var img = el('img', {alt: '', 'data-thumb': key, decoding: 'async'});
    if (!thumbObserver && window.IntersectionObserver) {
      thumbObserver = new IntersectionObserver(function (entries) {
        entries.forEach(function (e) {
          if (!e.isIntersecting) return;
          thumbObserver.unobserve(e.target);
          showThumbnail(e.target);
        });
      });
    }
    if (thumbObserver) thumbObserver.observe(img); else showThumbnail(img);
    return img;
  }

  function card(kind, facts) {
    var versions = versionsOf(kind, facts.identifier);
    var attrs = {className: 'card', href: hashOf(Object.assign(S.base ? {doc: S.base} : {}, kind === 'screen' ? {screen: facts.identifier} : {component: facts.identifier}))};
    attrs['data-' + kind] = facts.identifier;
    var count = (facts.versions || []).length;
    return el('a', attrs,
      el('div', {className: 'thumb'}, versions.length ? thumbnail(versions[0].key) : el('span', {className: 'empty', text: 'no version'})),
      el('div', {className: 'label'}, facts.name, el('small', {text: count + (count === 1 ? ' version' : ' versions') + (facts.dots && facts.dots.length ? ' · ' + facts.dots.length + (facts.dots.length === 1 ? ' comment thread' : ' comment threads') : '')})));
  }

  function componentTree(sections) {
    return (sections || []).map(function (section) {
      return el('div', null,
        el('h3', {text: section.name}),
        (section.components || []).length ? el('div', {className: 'cards'}, section.components.map(function (c) { return card('component', c); })) : null,
        el('div', {className: 'tree-list'}, componentTree(section.componentSections)));
    });
  }

  function renderHome(doc) {
    var p = doc.project;
    var app = document.getElementById('app');
    var main = el('div', {className: 'main'});
    var side = el('div', {className: 'side'});
    var platforms = {ios: 'iOS', android: 'Android', web: 'Web', osx: 'macOS'};
    var body = main;
    body.appendChild(el('h1', {text: p.name}));
    body.appendChild(el('div', {className: 'meta', text: [platforms[p.kind] || p.kind, p.density ? 'drawn at ' + p.density : null, 'created ' + (p.createDate || '').slice(0, 10)].filter(Boolean).join(' · ')}));
    (p.sections || []).forEach(function (section) {
      body.appendChild(el('h2', {text: section.name}));
      body.appendChild(el('div', {className: 'cards'}, (section.screens || []).filter(function (s) { return s.versions; }).map(function (s) { return card('screen', s); })));
    });
    if ((p.screens || []).length) {
      body.appendChild(el('h2', {text: (p.sections || []).length ? 'Other screens' : 'Screens'}));
      body.appendChild(el('div', {className: 'cards'}, p.screens.map(function (s) { return card('screen', s); })));
    }
    if ((p.componentSections || []).length) {
      body.appendChild(el('h2', {text: 'Components'}));
      componentTree(p.componentSections).forEach(function (n) { body.appendChild(n); });
    }
    body = side;
    body.appendChild(el('h2', {text: 'Style guide'}));
    if ((p.colors || []).length) {
      body.appendChild(el('h3', {text: 'Colors'}));
      body.appendChild(el('div', {className: 'swatches'}, p.colors.map(function (c) {
        return el('div', {className: 'swatch', 'data-color': c.name},
          el('span', {className: 'chip', style: 'background:' + c.hex + ';opacity:' + c.alpha}),
          el('div', null, c.name, el('small', {text: c.hex + (c.alpha < 1 ? ' · ' + fmt(c.alpha * 100) + '%' : '')})));
      })));
    }
    if ((p.textStyles || []).length) {
      body.appendChild(el('h3', {text: 'Text styles'}));
      p.textStyles.forEach(function (t) {
        body.appendChild(el('div', {className: 'type', 'data-text-style': t.name}, t.name,
          el('small', {text: [t.fontFamily + ' ' + t.fontWeight + (t.fontStyle === 'italic' ? ' italic' : ''),
                              fmt(t.fontSize) + (t.lineHeight !== null && t.lineHeight !== undefined ? '/' + fmt(t.lineHeight) : ''),
                              t.letterSpacing ? 'letter spacing ' + fmt(t.letterSpacing) : null,
                              t.color ? t.color.hex : null].filter(Boolean).join(' · ')})));
      });
    }
    if (doc.tokens) {
      body.appendChild(el('h3', {text: 'Design tokens'}));
      var names = {dtcg: 'DTCG JSON', css: 'CSS', swift: 'Swift', kotlin: 'Kotlin'};
      body.appendChild(el('div', {className: 'downloads'}, Object.keys(doc.tokens).map(function (fmtName) {
        var file = doc.tokens[fmtName].split('/').pop();
        return el('a', {href: 'tokens/' + S.base + file, download: file, 'data-tokens': fmtName, text: names[fmtName] + ' · ' + file});
      })));
    }
    if ((p.members || []).length) {
      body.appendChild(el('h2', {text: 'Members'}));
      body.appendChild(el('ul', {className: 'people'}, p.members.map(function (m) {
        return el('li', {'data-member': m.identifier}, m.name, el('span', {className: 'meta', text: m.role ? ' · ' + m.role : ''}));
      })));
    }
    app.replaceChildren(
      el('header', {className: 'bar'},
        store.index.folder ? el('a', {href: '#', text: 'Documents'}) : null,
        el('span', {className: 'brand', text: 'Orvane'}), el('span', {className: 'title', text: p.name}), el('span', {className: 'spacer'})),
      el('div', {className: 'home'}, el('div', {className: 'inner'}, main, side)));
    if (S.error) showError(S.error);
  }

  // --- A snapshot ----------------------------------------------------------------------------------

  function collectionFacts(kind, id) {
    var found = null;
    function walkSections(sections) {
      (sections || []).forEach(function (s) {
        (s.components || []).forEach(function (c) { if (c.identifier === id) found = found || c; });
        walkSections(s.componentSections);
      });
    }
    var p = S.doc.project;
    if (!p) return null;
    if (kind === 'screen') {
      (p.sections || []).forEach(function (s) { (s.screens || []).forEach(function (x) { if (x.identifier === id && x.versions) found = found || x; }); });
      (p.screens || []).forEach(function (x) { if (x.identifier === id) found = found || x; });
    } else {
      walkSections(p.componentSections);
    }
    return found;
  }

  function openSnapshot(key, route) {
    var e = entry(key);
    var same = S.snapKey === key;
    var ready = same ? Promise.resolve(S.snap) : loadScript('data/' + S.base + key + '.js', key);
    return ready.then(function (snap) {
      if (!same) {
        S.snap = snap;
        S.snapKey = key;
        indexFacts(snap);
        renderSnapshot(e);
      }
      applySelection(route);
    });
  }

  // Every layer's facts by identifier, its parent, and the tree order.
  function indexFacts(snap) {
    S.facts = {}; S.parents = {}; S.order = [];
    function walk(layers, parent) {
      (layers || []).forEach(function (l) {
        if (!S.facts[l.identifier]) { S.facts[l.identifier] = l; S.order.push(l.identifier); }
        S.parents[l.identifier] = parent;
        walk(l.layers, l);
      });
    }
    walk(snap.inspect.layers, null);
  }

  function renderSnapshot(e) {
    var app = document.getElementById('app');
    var facts = e.kind === 'snapshot' ? null : collectionFacts(e.kind, e.collection);
    var name = facts ? facts.name : (S.doc.name || 'Snapshot');
    var size = S.snap.inspect.size;
    S.compareResult = null;
    S.older = null;

    // The bar: where, which version, what to compare, overlays, units, zoom.
    var versions = e.kind === 'snapshot' ? [e] : versionsOf(e.kind, e.collection);
    var versionFacts = {};
    ((facts && facts.versions) || []).forEach(function (v) { versionFacts[v.identifier] = v; });
    function versionLabel(v) {
      var f = versionFacts[v.version] || {};
      return [ (f.createDate || '').replace('T', ' ').replace(/:\d\dZ$/, ''), f.creator, f.message].filter(Boolean).join(' · ') || v.version;
    }
    var versionSelect = el('select', {'data-version': true, 'aria-label': 'Version', onchange: function () { update({version: this.value, compare: '', layer: S.route.layer}); }},
      versions.map(function (v) { return el('option', {value: v.version, selected: v.key === e.key, text: versionLabel(v)}); }));
    var olderVersions = [];
    var seenCurrent = false;
    versions.forEach(function (v) { if (seenCurrent) olderVersions.push(v); if (v.key === e.key) seenCurrent = true; });
    if (!S.live) olderVersions = e.previous ? [entry(e.previous)] : [];
    var compareSelect = el('select', {'data-compare': true, 'aria-label': 'Compare with', onchange: function () { update({compare: this.value}); }},
      el('option', {value: '', text: 'No comparison'}),
      olderVersions.map(function (v) { return el('option', {value: v.version, text: 'Compare with ' + versionLabel(v)}); }));

    var overlayButtons = ['links', 'grid', 'assets'].map(function (o) {
      return el('button', {'data-overlay': o, 'aria-pressed': String(S.overlays[o]), onclick: function () {
        S.overlays[o] = !S.overlays[o];
        this.setAttribute('aria-pressed', String(S.overlays[o]));
        canvas.classList.toggle('show-' + o, S.overlays[o]);
      }}, o === 'links' ? 'Links' : o === 'grid' ? 'Grid' : 'Assets');
    });
    var unitSelect = el('select', {'data-units': true, 'aria-label': 'Units', onchange: function () { S.units = this.value; remBase.hidden = S.units !== 'rem'; refreshNumbers(); }},
      ['px', 'pt', 'dp', 'rem'].map(function (u) { return el('option', {value: u, selected: S.units === u, text: u}); }));
    var remBase = el('input', {type: 'number', min: '1', step: '1', value: String(S.remBase), 'data-rem-base': true, 'aria-label': 'Root font size in px', hidden: S.units !== 'rem', oninput: function () { S.remBase = parseFloat(this.value) || 16; refreshNumbers(); }});
    var scaleSelect = el('select', {'data-scale': true, 'aria-label': 'Design scale', title: 'The scale the design was drawn at', onchange: function () { S.scale = this.value; refreshNumbers(); showCode(); }},
      Object.keys(scales).map(function (s) { return el('option', {value: s, selected: S.scale === s, text: 'Design ' + s}); }));
    var zoomGroup = el('div', {className: 'group'},
      el('button', {'data-zoom': 'fit', onclick: function () { S.zoom = 'fit'; applyZoom(); }}, 'Fit'),
      el('button', {'data-zoom': '100', onclick: function () { S.zoom = 1; applyZoom(); }}, '100%'),
      el('button', {'data-zoom': 'out', 'aria-label': 'Zoom out', onclick: function () { S.zoom = currentZoom() / 1.25; applyZoom(); }}, '−'),
      el('button', {'data-zoom': 'in', 'aria-label': 'Zoom in', onclick: function () { S.zoom = currentZoom() * 1.25; applyZoom(); }}, '+'));
    var homeRoute = S.base ? {doc: S.base} : {};
    var bar = el('header', {className: 'bar'},
      S.doc.type === 'Project' ? el('a', {href: hashOf(homeRoute), text: S.doc.project.name, className: 'crumb'}) : null,
      S.doc.type === 'Project' ? el('span', {className: 'crumb', text: '/'}) : null,
      el('span', {className: 'title', text: name}),
      e.kind === 'snapshot' ? null : versionSelect,
      e.kind === 'snapshot' ? null : compareSelect,
      el('span', {className: 'spacer'}),
      el('div', {className: 'group'}, overlayButtons),
      el('label', null, 'Units', unitSelect, remBase),
      scaleSelect, zoomGroup);

    // The canvas: the drawing, then what the page lays over it.
    var canvas = el('div', {className: 'canvas', 'data-canvas': true, 'data-version': e.version});
    canvas.setAttribute(e.kind === 'component' ? 'data-component' : e.kind === 'screen' ? 'data-screen' : 'data-snapshot', e.collection);
    canvas.innerHTML = S.snap.svg;
    var over = svgEl('svg', {class: 'over', width: size.width, height: size.height, viewBox: '0 0 ' + size.width + ' ' + size.height});
    canvas.appendChild(over);
    var pins = el('div', {className: 'pins'});
    canvas.appendChild(pins);
    ['links', 'grid', 'assets'].forEach(function (o) { canvas.classList.toggle('show-' + o, S.overlays[o]); });
    var zoomed = el('div', {className: 'zoomed'}, canvas);
    var legend = el('div', {className: 'legend', hidden: true});
    var stage = el('div', {className: 'stage'}, legend, zoomed);

    // The layer tree.
    var search = el('input', {type: 'search', placeholder: 'Search layers', 'aria-label': 'Search layers', 'data-search': true, oninput: function () { filterTree(this.value); }});
    var rows = el('div', {className: 'rows', role: 'tree'});
    (function walk(layers, depth) {
      (layers || []).forEach(function (l) {
        rows.appendChild(el('div', {className: 'row', role: 'treeitem', 'data-tree-layer': l.identifier, style: 'padding-left:' + (10 + depth * 14) + 'px', title: l.name,
          onclick: function () { select(l.identifier); }},
          el('span', {className: 'kind', text: l.kind || ''}), el('span', {text: l.name})));
        walk(l.layers, depth + 1);
      });
    })(S.snap.inspect.layers, 0);
    var layersPanel = el('aside', {className: 'layers'}, search, rows);

    var inspector = el('aside', {className: 'inspector', 'data-inspector': true});
    app.replaceChildren(bar, el('div', {className: 'screen'}, layersPanel, stage, inspector));
    if (S.error) showError(S.error);

    S.ui = {canvas: canvas, over: over, pins: pins, zoomed: zoomed, stage: stage, legend: legend, inspector: inspector, rows: rows, facts: facts};
    renderPins(facts);
    bindCanvas(canvas);
    applyZoom();
    window.onresize = function () { if (S.zoom === 'fit') applyZoom(); };
  }

  function currentZoom() {
    var size = S.snap.inspect.size;
    if (S.zoom !== 'fit') return S.zoom;
    var stage = S.ui.stage;
    var legend = S.ui.legend && !S.ui.legend.hidden ? S.ui.legend.offsetHeight : 0;
    var w = Math.max(100, stage.clientWidth - 80), h = Math.max(100, stage.clientHeight - 80 - legend);
    return Math.min(w / size.width, h / size.height, 1) || 1;
  }
  function applyZoom() {
    var z = currentZoom();
    var size = S.snap.inspect.size;
    S.ui.zoomed.style.transform = 'scale(' + z + ')';
    S.ui.zoomed.style.width = size.width + 'px';
    S.ui.zoomed.style.height = size.height + 'px';
    var left = Math.max(40, (S.ui.stage.clientWidth - size.width * z) / 2);
    S.ui.zoomed.style.marginLeft = left + 'px';
    S.ui.zoomed.style.marginRight = (left + size.width * (z - 1)) + 'px';
    S.ui.zoomed.style.marginBottom = (40 + size.height * (z - 1)) + 'px';
    S.ui.zoomed.setAttribute('data-zoom-level', fmt(z));
  }

  function filterTree(text) {
    var q = text.trim().toLowerCase();
    var show = {};
    if (q) {
      S.order.forEach(function (id) {
        if ((S.facts[id].name || '').toLowerCase().indexOf(q) < 0) return;
        for (var l = S.facts[id]; l; l = S.parents[l.identifier]) show[l.identifier] = true;
      });
    }
    Array.prototype.forEach.call(S.ui.rows.children, function (row) {
      row.classList.toggle('hidden', !!q && !show[row.getAttribute('data-tree-layer')]);
    });
  }

  // --- Pointing at the canvas ----------------------------------------------------------------------

  function layerAt(target) {
    var node = target && target.closest ? target.closest('[data-layer]') : null;
    if (!node || !S.ui.canvas.contains(node)) return null;
    return node.getAttribute('data-layer');
  }

  function bindCanvas(canvas) {
    canvas.addEventListener('click', function (ev) {
      var link = ev.target.closest && ev.target.closest('[data-link]');
      if (link && S.overlays.links) { followLink(parseInt(link.getAttribute('data-link'), 10)); return; }
      var id = layerAt(ev.target);
      if (id) select(id);
    });
    canvas.addEventListener('mousemove', function (ev) {
      if (!S.route.layer) return;
      var id = layerAt(ev.target);
      if (id === S.route.layer) return drawRedlines(null);
      drawRedlines(id || 'artboard');
    });
    canvas.addEventListener('mouseleave', function () { drawRedlines(null); });
  }

  function followLink(index) {
    var link = (S.snap.inspect.links || [])[index];
    if (!link) return;
    if (link.screen) {
      update({screen: link.screen, component: '', version: '', layer: '', compare: '', dot: ''});
    } else if (/previous/.test(link.destination || '')) {
      history.back();
    }
  }

  function select(id) {
    update({layer: id, dot: ''});
  }

  function applySelection(route) {
    var id = route.layer && S.facts[route.layer] ? route.layer : null;
    Array.prototype.forEach.call(S.ui.rows.querySelectorAll('.selected'), function (r) { r.classList.remove('selected'); });
    if (id) {
      var row = S.ui.rows.querySelector('[data-tree-layer="' + CSS.escape(id) + '"]');
      if (row) { row.classList.add('selected'); row.scrollIntoView({block: 'nearest'}); }
    }
    Array.prototype.forEach.call(S.ui.pins.children, function (p) { p.classList.toggle('selected', p.getAttribute('data-dot') === route.dot); });
    drawSelection(id);
    drawRedlines(null);
    renderInspector(id, route.dot);
    var compare = route.compare || '';
    var compareBox = document.querySelector('select[data-compare]');
    if (compareBox) compareBox.value = compare;
    if (compare !== (S.compareFor || '')) applyCompare(compare);
  }

  function frameOf(id) { return S.facts[id] && S.facts[id].absoluteFrame; }

  function clearOver(cls) {
    Array.prototype.forEach.call(S.ui.over.querySelectorAll('.' + cls), function (n) { n.remove(); });
  }

  function drawSelection(id) {
    clearOver('selection');
    var f = id && frameOf(id);
    if (!f) return;
    var g = svgEl('g', {class: 'selection'});
    g.appendChild(svgEl('rect', {class: 'box', x: f.x, y: f.y, width: f.width, height: f.height}));
    S.ui.over.appendChild(g);
  }

  function tag(parent, x, y, text) {
    var z = currentZoom();
    var g = svgEl('g', {class: 'tag', transform: 'translate(' + x + ' ' + y + ') scale(' + (1 / z) + ')'});
    var w = 8 + text.length * 6.4;
    g.appendChild(svgEl('rect', {x: -w / 2, y: -9, width: w, height: 18, rx: 4}));
    g.appendChild(svgEl('text', {x: 0, y: 4, 'text-anchor': 'middle', text: text}));
    parent.appendChild(g);
  }
  function redLine(parent, x1, y1, x2, y2) {
    parent.appendChild(svgEl('line', {class: 'red', x1: x1, y1: y1, x2: x2, y2: y2}));
  }

  // The distances from the selected layer to the one pointed at (or the artboard's edges):
  // lines on the canvas, and the numbers in the chosen unit in [data-redlines].
  function drawRedlines(other) {
    clearOver('redlines');
    var old = document.querySelector('[data-redlines]');
    if (old) old.remove();
    var selected = S.route.layer;
    var a = selected && frameOf(selected);
    if (!other || !a) { S.hover = null; return; }
    S.hover = other;
    var g = svgEl('g', {class: 'redlines'});
    var size = S.snap.inspect.size;
    var values = {}, relation;
    var A = edges(a);
    var midY = function (e) { return (e.minY + e.maxY) / 2; }, midX = function (e) { return (e.minX + e.maxX) / 2; };
    if (other === 'artboard') {
      relation = 'artboard';
      values = {top: A.minY, right: size.width - A.maxX, bottom: size.height - A.maxY, left: A.minX};
      redLine(g, midX(A), 0, midX(A), A.minY); redLine(g, A.maxX, midY(A), size.width, midY(A));
      redLine(g, midX(A), A.maxY, midX(A), size.height); redLine(g, 0, midY(A), A.minX, midY(A));
      tag(g, midX(A), A.minY / 2, fmt(length(values.top))); tag(g, (A.maxX + size.width) / 2, midY(A), fmt(length(values.right)));
      tag(g, midX(A), (A.maxY + size.height) / 2, fmt(length(values.bottom))); tag(g, A.minX / 2, midY(A), fmt(length(values.left)));
    } else {
      var b = frameOf(other);
      if (!b) return;
      var hover = svgEl('rect', {class: 'hover', x: b.x, y: b.y, width: b.width, height: b.height});
      g.appendChild(hover);
      var m = measure(a, b);
      relation = m.relation;
      if (m.relation === 'apart') {
        values = {horizontal: m.horizontal, vertical: m.vertical};
        var B = m.b;
        if (m.horizontal > 0) {
          var y = (Math.max(A.minY, B.minY) + Math.min(A.maxY, B.maxY)) / 2;
          if (m.vertical > 0) y = midY(A);
          var x1 = A.maxX <= B.minX ? A.maxX : B.maxX, x2 = A.maxX <= B.minX ? B.minX : A.minX;
          redLine(g, x1, y, x2, y); tag(g, (x1 + x2) / 2, y, fmt(length(m.horizontal)));
        }
        if (m.vertical > 0) {
          var x = (Math.max(A.minX, B.minX) + Math.min(A.maxX, B.maxX)) / 2;
          if (m.horizontal > 0) x = midX(A);
          var y1 = A.maxY <= B.minY ? A.maxY : B.maxY, y2 = A.maxY <= B.minY ? B.minY : A.minY;
          redLine(g, x, y1, x, y2); tag(g, x, (y1 + y2) / 2, fmt(length(m.vertical)));
        }
      } else if (m.relation === 'inside') {
        values = {top: m.top, right: m.right, bottom: m.bottom, left: m.left};
        var I = m.inner, O = m.outer;
        redLine(g, midX(I), O.minY, midX(I), I.minY); tag(g, midX(I), (O.minY + I.minY) / 2, fmt(length(m.top)));
        redLine(g, I.maxX, midY(I), O.maxX, midY(I)); tag(g, (I.maxX + O.maxX) / 2, midY(I), fmt(length(m.right)));
        redLine(g, midX(I), I.maxY, midX(I), O.maxY); tag(g, midX(I), (I.maxY + O.maxY) / 2, fmt(length(m.bottom)));
        redLine(g, O.minX, midY(I), I.minX, midY(I)); tag(g, (O.minX + I.minX) / 2, midY(I), fmt(length(m.left)));
      } else {
        values = {width: m.width, height: m.height};
        var l = Math.max(m.a.minX, m.b.minX), t = Math.max(m.a.minY, m.b.minY);
        g.appendChild(svgEl('rect', {class: 'red', x: l, y: t, width: m.width, height: m.height, fill: 'none'}));
        tag(g, l + m.width / 2, t, fmt(length(m.width))); tag(g, l, t + m.height / 2, fmt(length(m.height)));
      }
    }
    S.ui.over.appendChild(g);
    var words = {apart: 'apart from', inside: 'inside or around', overlap: 'overlapping', artboard: 'to the artboard'};
    var box = el('div', {className: 'redlines-box', 'data-redlines': true, 'data-relation': relation, 'data-b': other === 'artboard' ? '' : other},
      el('div', {className: 'what', text: other === 'artboard' ? 'Distances to the artboard' : words[relation] + ' ' + S.facts[other].name}),
      Object.keys(values).map(function (k) {
        return el('span', {className: 'measure'}, k + ' ', el('b', {'data-measure': k, text: fmt(length(values[k]))}), ' ' + unitOf());
      }));
    S.ui.inspector.insertBefore(box, S.ui.inspector.firstChild);
  }

  // --- Comments ------------------------------------------------------------------------------------

  function renderPins(facts) {
    var pins = S.ui.pins;
    pins.replaceChildren();
    ((facts && facts.dots) || []).forEach(function (dot, i) {
      var pin = el('button', {className: 'pin', 'data-dot': dot.identifier, title: dot.name, style: 'left:' + dot.x + 'px;top:' + dot.y + 'px;background:' + (dot.color || '#f59e0b'),
        onclick: function (ev) { ev.stopPropagation(); update({dot: dot.identifier, layer: ''}); }}, String(i + 1));
      pins.appendChild(pin);
    });
  }

  function dotFacts(id) {
    var found = null;
    ((S.ui.facts && S.ui.facts.dots) || []).forEach(function (d) { if (d.identifier === id) found = d; });
    return found;
  }

  // --- The inspector -------------------------------------------------------------------------------

  function colorText(c) {
    if (!c) return '–';
    return c.hex + (c.alpha < 1 ? ' ' + fmt(c.alpha * 100) + '%' : '');
  }
  function colorNode(c) {
    if (!c) return el('span', {text: '–'});
    return el('span', null, el('span', {className: 'dot', style: 'background:' + c.hex + ';opacity:' + c.alpha}), colorText(c),
      c.token ? el('span', {className: 'token', text: ' · ' + c.token}) : null);
  }
  function paintText(f) {
    if (!f) return '–';
    var o = f.opacity !== null && f.opacity !== undefined && f.opacity < 1 ? ' at ' + fmt(f.opacity * 100) + '%' : '';
    var b = f.blendMode ? ' · ' + f.blendMode : '';
    if (f.kind === 'color') return colorText(f.color) + (f.color && f.color.token ? ' (' + f.color.token + ')' : '') + o + b;
    if (f.kind === 'gradient' && f.gradient) {
      return (f.gradient.kind || 'linear') + ' gradient: ' + (f.gradient.stops || []).map(function (s) { return colorText(s.color) + ' ' + fmt(s.position * 100) + '%'; }).join(', ') + o + b;
    }
    return 'nothing' + o;
  }

  function factRow(list, label, name, text, node) {
    list.appendChild(el('dt', {text: label}));
    list.appendChild(el('dd', name ? {'data-spec': name} : null, node || text));
    list.appendChild(copyButton(text));
  }

  function renderInspector(id, dotId) {
    var box = S.ui.inspector;
    var redlines = box.querySelector('[data-redlines]');
    box.replaceChildren();
    if (redlines) box.appendChild(redlines);
    box.removeAttribute('data-layer');
    var dot = dotId && dotFacts(dotId);
    if (dot) {
      box.appendChild(el('h2', {text: dot.name}));
      box.appendChild(el('div', {className: 'meta', text: [dot.status, dot.creator].filter(Boolean).join(' · ')}));
      box.appendChild(el('ul', {className: 'comments', 'data-comments': dot.identifier}, (dot.comments || []).map(function (c) {
        return el('li', {'data-comment': c.identifier}, el('span', {className: 'who', text: c.author || 'someone'}),
          el('span', {className: 'when', text: (c.createDate || '').replace('T', ' ').replace('Z', '')}), el('div', {text: c.note}));
      })));
    }
    var f = id && S.facts[id];
    if (!f) {
      if (!dot) {
        var size = S.snap.inspect.size;
        box.appendChild(el('h2', {text: 'Artboard'}));
        var dl = el('dl', {className: 'facts'});
        factRow(dl, 'Width', null, lengthText(size.width));
        factRow(dl, 'Height', null, lengthText(size.height));
        if (S.snap.inspect.backgroundColor) factRow(dl, 'Background', null, colorText(S.snap.inspect.backgroundColor), colorNode(S.snap.inspect.backgroundColor));
        box.appendChild(dl);
        box.appendChild(el('p', {className: 'note', text: 'Click a layer on the canvas or in the list for its properties and code; point at another to measure.'}));
        if (S.compareResult && S.route.compare) box.appendChild(changesList(S.compareResult));
      }
      renderAssets(box, null);
      return;
    }
    box.setAttribute('data-layer', id);
    box.appendChild(el('h2', {text: f.name}));
    box.appendChild(el('div', {className: 'meta', text: (f.kind || 'layer') + ' · ' + id}));
    var facts = el('dl', {className: 'facts'});
    var r = f.absoluteFrame || {};
    factRow(facts, 'X', 'x', lengthText(r.x));
    factRow(facts, 'Y', 'y', lengthText(r.y));
    factRow(facts, 'Width', 'width', lengthText(r.width));
    factRow(facts, 'Height', 'height', lengthText(r.height));
    factRow(facts, 'Rotation', 'rotation', fmt(f.rotation || 0) + '°');
    factRow(facts, 'Opacity', 'opacity', fmt(f.opacity === null || f.opacity === undefined ? 1 : f.opacity));
    if (f.blendMode) factRow(facts, 'Blend mode', 'blendMode', f.blendMode);
    factRow(facts, 'Radius', 'cornerRadius', lengthText(f.cornerRadius || 0));
    (f.fills || []).forEach(function (fill, i) { factRow(facts, i ? '' : 'Fills', null, paintText(fill)); });
    (f.borders || []).forEach(function (b, i) {
      factRow(facts, i ? '' : 'Borders', null, lengthText(b.thickness) + ' ' + (b.position || 'center') + ' · ' + paintText(b.fill));
    });
    (f.shadows || []).forEach(function (s, i) {
      factRow(facts, i ? '' : 'Shadows', null, (s.kind || 'outer') + ' ' + [lengthText(s.x), lengthText(s.y), 'blur ' + lengthText(s.blurRadius), 'spread ' + lengthText(s.spread)].join(' ') + ' · ' + colorText(s.color));
    });
    if (f.blur) factRow(facts, 'Blur', null, (f.blur.kind || 'gaussian') + ' ' + lengthText(f.blur.radius));
    box.appendChild(facts);
    if (f.kind === 'text') {
      box.appendChild(el('h3', {text: 'Text'}));
      box.appendChild(el('div', {className: 'style-card'}, el('div', {'data-spec': 'content', text: f.content}), copyButton(f.content)));
      (f.textStyles || []).forEach(function (t, i) {
        var dl2 = el('dl', {className: 'facts'});
        var first = i === 0;
        factRow(dl2, 'Range', null, t.range.location + '…' + (t.range.location + t.range.length));
        factRow(dl2, 'Family', first ? 'fontFamily' : null, t.fontFamily + ' (' + t.fontName + ')');
        factRow(dl2, 'Weight', first ? 'fontWeight' : null, String(t.fontWeight) + (t.fontStyle === 'italic' ? ' italic' : ''));
        factRow(dl2, 'Size', first ? 'fontSize' : null, lengthText(t.fontSize, 'font'));
        if (t.lineHeight !== null && t.lineHeight !== undefined) factRow(dl2, 'Line height', first ? 'lineHeight' : null, lengthText(t.lineHeight, 'font'));
        factRow(dl2, 'Letter spacing', first ? 'letterSpacing' : null, lengthText(t.letterSpacing || 0, 'font'));
        factRow(dl2, 'Color', null, colorText(t.color), colorNode(t.color));
        if (t.alignment) factRow(dl2, 'Alignment', null, t.alignment);
        box.appendChild(el('div', {className: 'style-card', 'data-text-style': i},
          t.token ? el('div', {className: 'token', text: 'Text style ' + t.token}) : null, dl2));
      });
    }
    box.appendChild(el('h3', {text: 'Code'}));
    var tabs = el('div', {className: 'tabs', role: 'tablist'});
    var names = {css: 'CSS', swiftui: 'SwiftUI', compose: 'Compose'};
    var panes = {};
    Object.keys(names).forEach(function (lang) {
      tabs.appendChild(el('button', {role: 'tab', 'aria-selected': String(S.tab === lang), 'data-tab': lang, onclick: function () {
        S.tab = lang;
        Array.prototype.forEach.call(tabs.children, function (b) { b.setAttribute('aria-selected', String(b.getAttribute('data-tab') === lang)); });
        Object.keys(panes).forEach(function (k) { panes[k].hidden = k !== lang; });
      }}, names[lang]));
      panes[lang] = el('pre', {className: 'code', 'data-code': lang, hidden: S.tab !== lang});
    });
    box.appendChild(tabs);
    box.appendChild(el('div', {className: 'note', 'data-code-note': true}));
    Object.keys(panes).forEach(function (k) { box.appendChild(panes[k]); });
    box.appendChild(el('div', null, copyButton(function () { return panes[S.tab].textContent; })));
    showCode();
    renderAssets(box, id);
  }

  // What the comparison found, a line a layer; a click selects the layer.
  function changesList(result) {
    var list = el('ul', {className: 'comments', 'data-changes': true});
    function row(kind, layer, what) {
      var present = kind !== 'removed' && S.facts[layer.identifier];
      list.appendChild(el('li', {className: kind, onclick: present ? function () { select(layer.identifier); } : null},
        el('span', {className: 'who ' + kind, text: kind === 'added' ? '+ ' : kind === 'removed' ? '− ' : '~ '}),
        el('span', {text: layer.name}), what ? el('span', {className: 'when', text: what}) : null));
    }
    (result.added || []).forEach(function (l) { row('added', l); });
    (result.removed || []).forEach(function (l) { row('removed', l); });
    (result.changed || []).forEach(function (c) { row('changed', c.layer, c.changes.join(', ')); });
    return el('div', null, el('h3', {text: 'Changes'}), list);
  }

  // The code tabs: `code` for the layer at the chosen design scale (a site holds 1x only).
  function showCode() {
    var id = S.route.layer;
    var box = S.ui && S.ui.inspector;
    if (!box || !id || !S.facts[id]) return;
    var note = box.querySelector('[data-code-note]');
    var fill = function (code) {
      ['css', 'swiftui', 'compose'].forEach(function (lang) {
        var pane = box.querySelector('[data-code="' + lang + '"]');
        if (pane) pane.textContent = code ? code[lang] : '';
      });
    };
    if (!S.live) {
      note.textContent = S.scale === '1x' ? '' : 'This site holds the code at 1x: ask for another scale with orvane serve or orvane code --density.';
      fill(S.snap.code ? S.snap.code[id] : null);
      return;
    }
    note.textContent = '';
    var density = codeDensity[S.scale];
    var cacheKey = S.snapKey + '|' + id + '|' + density;
    if (S.codeCache[cacheKey]) return fill(S.codeCache[cacheKey]);
    var url = 'api/code?base=' + encodeURIComponent(S.base) + '&key=' + encodeURIComponent(S.snapKey) + '&layer=' + encodeURIComponent(id) + '&density=' + encodeURIComponent(density);
    fetch(url, {cache: 'no-store', credentials: 'same-origin'}).then(function (r) { return r.ok ? r.json() : null; }).then(function (code) {
      if (!code) return;
      S.codeCache[cacheKey] = code;
      if (S.route.layer === id && codeDensity[S.scale] === density) fill(code);
    });
  }

  function renderAssets(box, id) {
    var assets = S.snap.assets || {};
    var items = (assets.assets || []).concat(assets.layers || []);
    if (!items.length) return;
    var section = el('div', {'data-assets-list': true});
    section.appendChild(el('h3', {text: 'Assets'}));
    items.forEach(function (a) {
      var title = a.displayName || a.name;
      var from = a.layerName ? 'from ' + a.layerName : 'exportable layer';
      var contents = (a.contents || []).map(function (c) {
        return el('li', null, (c.format || '?') + ' at ' + (c.density || '1x') + ' ', c.url ? el('a', {href: c.url, target: '_blank', rel: 'noopener noreferrer', text: 'link'}) : null);
      });
      var files = ['ios', 'android', 'web'].map(function (p) {
        return (a[p] || []).length ? el('li', null, el('b', {text: p === 'ios' ? 'iOS ' : p === 'android' ? 'Android ' : 'Web '}), (a[p] || []).map(function (f) { return f.file; }).join(', ')) : null;
      });
      section.appendChild(el('div', {className: 'style-card', 'data-asset': title}, el('div', null, el('b', {text: title}), ' ', el('span', {className: 'meta', text: from + (a.isBitmap ? ' · bitmap' : '')})),
        contents.length ? el('ul', {className: 'files'}, contents) : null, el('ul', {className: 'files'}, files)));
    });
    box.appendChild(section);
  }

  // Lengths follow the units and the design scale: the inspector and the redlines again.
  function refreshNumbers() {
    if (!S.ui) return;
    renderInspector(S.route.layer && S.facts[S.route.layer] ? S.route.layer : null, S.route.dot);
    if (S.hover) drawRedlines(S.hover);
  }

  // --- Compare -------------------------------------------------------------------------------------

  function applyCompare(version) {
    S.compareFor = version;
    Array.prototype.forEach.call(S.ui.over.querySelectorAll('[data-change]'), function (n) { n.remove(); });
    var olderBox = S.ui.canvas.querySelector('.older');
    if (olderBox) olderBox.remove();
    S.ui.legend.hidden = true;
    if (!version) return;
    var current = entry(S.snapKey);
    var older = null;
    versionsOf(current.kind, current.collection).forEach(function (v) { if (v.version === version) older = v; });
    if (!older) return;
    var diff;
    if (!S.live) {
      diff = S.snap.diff && S.snap.diff.from === older.key ? Promise.resolve(S.snap.diff.result) : Promise.reject(new Error('no comparison'));
    } else {
      diff = fetch('api/diff?base=' + encodeURIComponent(S.base) + '&from=' + encodeURIComponent(older.key) + '&to=' + encodeURIComponent(current.key), {cache: 'no-store', credentials: 'same-origin'})
        .then(function (r) { return r.json(); });
    }
    var key = S.snapKey;
    Promise.all([diff, loadScript('data/' + S.base + older.key + '.js', older.key)]).then(function (all) {
      if (S.snapKey !== key || S.compareFor !== version) return;
      S.snap = store[key];
      drawMarks(all[0], all[1]);
    }).catch(function () {});
  }

  function drawMarks(result, older) {
    var over = S.ui.over;
    // The older drawing, out of sight, lends the removed layers their look.
    var holder = el('div', {className: 'older', 'aria-hidden': 'true'});
    holder.innerHTML = older.svg;
    S.ui.canvas.appendChild(holder);
    var olderFacts = {};
    (function walk(layers) { (layers || []).forEach(function (l) { olderFacts[l.identifier] = olderFacts[l.identifier] || l; walk(l.layers); }); })(older.inspect.layers);
    var counts = {added: 0, removed: 0, changed: 0};
    var labels = [];
    function mark(kind, layer, frame, label) {
      if (!frame) return null;
      counts[kind]++;
      var g = svgEl('g', {'data-change': kind, 'data-source': layer.sourceIdentifier, 'data-layer-id': layer.identifier});
      g.appendChild(svgEl('rect', {class: 'mark', x: frame.x, y: frame.y, width: frame.width, height: frame.height}));
      // Labels of nested layers would lie on one another: each takes the next free line.
      var x = frame.x + 2, y = frame.y - 3;
      while (labels.some(function (l) { return Math.abs(l.y - y) < 11 && Math.abs(l.x - x) < 110; })) y += 11;
      labels.push({x: x, y: y});
      g.appendChild(svgEl('text', {x: x, y: y, text: label}));
      over.appendChild(g);
      return g;
    }
    (result.added || []).forEach(function (l) { mark('added', l, frameOf(l.identifier), 'added'); });
    (result.changed || []).forEach(function (c) { mark('changed', c.layer, frameOf(c.layer.identifier), c.changes.join(', ')); });
    (result.removed || []).forEach(function (l) {
      var g = mark('removed', l, (olderFacts[l.identifier] || {}).absoluteFrame, 'removed');
      var drawn = holder.querySelector('[data-layer="' + CSS.escape(l.identifier) + '"]');
      if (g && drawn) {
        var copy = drawn.cloneNode(true);
        copy.removeAttribute('data-layer');
        copy.removeAttribute('id');
        copy.setAttribute('opacity', '0.35');
        g.insertBefore(copy, g.firstChild);
      }
    });
    var legend = S.ui.legend;
    var parts = [
      el('span', {className: 'added', text: counts.added + ' added'}),
      el('span', {className: 'removed', text: counts.removed + ' removed'}),
      el('span', {className: 'changed', text: counts.changed + ' changed'})];
    if ((result.snapshot || []).length) {
      parts.push(el('span', {text: 'Artboard: ' + result.snapshot.map(function (c) { return c.change; }).join(', ')}));
    }
    legend.replaceChildren.apply(legend, parts);
    legend.hidden = false;
    S.compareResult = result;
    if (!S.route.layer && !S.route.dot) renderInspector(null, null);
    applyZoom();
  }

  if (document.readyState === 'loading') document.addEventListener('DOMContentLoaded', start);
  else start();
})();
