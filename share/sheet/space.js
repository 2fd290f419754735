"use strict";
// The equipment of a set-up sheet in 3D. Millimetres; x along the main spindle's axis, y up.
(function () {
  const VIEWS = {
    iso: [0.55, 0.45, 0.85], front: [0, 0, 1], top: [0, 1, 0.001], right: [1, 0, 0], left: [-1, 0, 0],
  };
  const TURN = 0.0087; // radians for a pixel
  const STEP = 0.13; // radians for a key

  function bytesOf(text) {
    const letters = atob(text);
    const bytes = new Uint8Array(letters.length);
    for (let i = 0; i < letters.length; ++i) bytes[i] = letters.charCodeAt(i);
    return bytes.buffer;
  }

  function geometryOf(body) {
    const geometry = new THREE.BufferGeometry();
    geometry.setAttribute("position", new THREE.BufferAttribute(new Float32Array(bytesOf(body.points)), 3));
    geometry.setAttribute("normal",
      new THREE.BufferAttribute(new Int8Array(bytesOf(body.normals)), 3, true));
    geometry.setIndex(new THREE.BufferAttribute(new Uint32Array(bytesOf(body.facets)), 1));
    return geometry;
  }

  function edgesOf(body, geometry) {
    const edges = new THREE.BufferGeometry();
    edges.setAttribute("position", geometry.getAttribute("position"));
    edges.setIndex(new THREE.BufferAttribute(new Uint32Array(bytesOf(body.edges)), 1));
    return edges;
  }

  // The outside is lit; the inside, which only a section shows, is plain, so that a cut looks filled.
  function objectOf(body, planes) {
    const geometry = geometryOf(body);
    const through = body.seenThrough
      ? { transparent: true, opacity: 0.35, depthWrite: false } : {};
    const offset = { polygonOffset: true, polygonOffsetFactor: 1, polygonOffsetUnits: 1 };
    const common = Object.assign({ clippingPlanes: planes }, through, offset);
    const colour = new THREE.Color(body.colour);
    const outside = new THREE.Mesh(geometry, new THREE.MeshLambertMaterial(
      Object.assign({ color: colour, side: THREE.FrontSide }, common)));
    const inside = new THREE.Mesh(geometry, new THREE.MeshBasicMaterial(
      Object.assign({ color: colour.clone().multiplyScalar(0.62), side: THREE.BackSide }, common)));
    const lines = new THREE.LineSegments(edgesOf(body, geometry),
      new THREE.LineBasicMaterial({ color: 0x20262c, clippingPlanes: planes }));
    const object = new THREE.Group();
    object.add(outside, inside, lines);
    if (body.seenThrough) object.renderOrder = 1;
    return object;
  }

  function Space(root, model) {
    const stage = root.querySelector(".stage");
    const renderer = new THREE.WebGLRenderer({ antialias: true, preserveDrawingBuffer: true });
    const scene = new THREE.Scene();
    const camera = new THREE.OrthographicCamera();
    const plane = new THREE.Plane(new THREE.Vector3(0, 0, -1), 0);
    const planes = [];
    const box = new THREE.Box3();
    const middle = new THREE.Vector3();
    let reach = 1, zoom = 1, azimuth = 0, height = 0, isWaiting = false;

    function draw() {
      isWaiting = false;
      const width = stage.clientWidth, tall = stage.clientHeight;
      if (width === 0 || tall === 0) return;
      renderer.setSize(width, tall, false);
      const half = reach / zoom, ratio = width / tall;
      camera.left = -half * Math.max(1, ratio);
      camera.right = -camera.left;
      camera.top = half * Math.max(1, 1 / ratio);
      camera.bottom = -camera.top;
      camera.near = 0;
      camera.far = 8 * reach;
      const away = new THREE.Vector3(Math.sin(azimuth) * Math.cos(height), Math.sin(height),
        Math.cos(azimuth) * Math.cos(height));
      camera.position.copy(middle).addScaledVector(away, 4 * reach);
      camera.up.set(0, 1, 0);
      camera.lookAt(middle);
      camera.updateProjectionMatrix();
      renderer.render(scene, camera);
    }
    function drawSoon() {
      if (isWaiting) return;
      isWaiting = true;
      requestAnimationFrame(draw);
    }
    function turn(aside, over) {
      azimuth -= aside;
      height = Math.max(-1.55, Math.min(1.55, height + over));
      drawSoon();
    }
    function zoomBy(factor) {
      zoom = Math.max(0.2, Math.min(50, zoom * factor));
      drawSoon();
    }
    function lookFrom(view) {
      const toward = new THREE.Vector3().fromArray(VIEWS[view]).normalize();
      azimuth = Math.atan2(toward.x, toward.z);
      height = Math.asin(toward.y);
      zoom = 1;
      drawSoon();
    }

    function addBodies() {
      const list = root.querySelector(".bodies");
      for (const body of model.bodies) {
        const object = objectOf(body, planes);
        scene.add(object);
        box.expandByObject(object);
        const label = document.createElement("label");
        const check = document.createElement("input");
        check.type = "checkbox";
        check.checked = true;
        check.addEventListener("change", () => { object.visible = check.checked; drawSoon(); });
        const colour = document.createElement("span");
        colour.className = "colour";
        colour.style.background = body.colour;
        label.append(check, colour, document.createTextNode(body.name));
        list.append(label);
      }
      box.getCenter(middle);
      reach = Math.max(1e-3, box.getSize(new THREE.Vector3()).length() / 2);
    }

    function addLights() {
      scene.background = new THREE.Color(0xf7f9fa);
      scene.add(new THREE.HemisphereLight(0xffffff, 0x9aa4ad, 0.75));
      const lamp = new THREE.DirectionalLight(0xffffff, 0.55);
      lamp.position.set(0.4, 0.8, 1);
      camera.add(lamp);
      scene.add(camera);
    }

    function listenToTools() {
      const cut = root.querySelector(".cut"), place = root.querySelector(".plane");
      function setPlane() {
        place.disabled = !cut.checked;
        plane.constant = Number(place.value) / 100 * Math.max(Math.abs(box.min.z), Math.abs(box.max.z));
        planes.length = 0;
        if (cut.checked) planes.push(plane);
        scene.traverse((each) => { if (each.material) each.material.needsUpdate = true; });
        drawSoon();
      }
      cut.addEventListener("change", setPlane);
      place.addEventListener("input", setPlane);
      for (const button of root.querySelectorAll("[data-view]"))
        button.addEventListener("click", () => lookFrom(button.dataset.view));
    }

    function listenToPointers() {
      const pointers = new Map();
      const spread = () => {
        const [a, b] = [...pointers.values()];
        return Math.hypot(a.x - b.x, a.y - b.y);
      };
      stage.addEventListener("pointerdown", (event) => {
        stage.setPointerCapture(event.pointerId);
        pointers.set(event.pointerId, { x: event.clientX, y: event.clientY });
      });
      stage.addEventListener("pointermove", (event) => {
        const former = pointers.get(event.pointerId);
        if (!former) return;
        const before = pointers.size === 2 ? spread() : 0;
        pointers.set(event.pointerId, { x: event.clientX, y: event.clientY });
        if (before > 0) return zoomBy(spread() / before);
        turn((event.clientX - former.x) * TURN, (event.clientY - former.y) * TURN);
      });
      for (const name of ["pointerup", "pointercancel"])
        stage.addEventListener(name, (event) => pointers.delete(event.pointerId));
      stage.addEventListener("wheel", (event) => {
        event.preventDefault();
        zoomBy(Math.exp(-event.deltaY * 0.0015));
      }, { passive: false });
    }

    function listenToKeys() {
      const keys = {
        ArrowLeft: () => turn(-STEP, 0), ArrowRight: () => turn(STEP, 0),
        ArrowUp: () => turn(0, -STEP), ArrowDown: () => turn(0, STEP),
        "+": () => zoomBy(1.15), "-": () => zoomBy(1 / 1.15), Home: () => lookFrom("iso"),
      };
      stage.addEventListener("keydown", (event) => {
        if (!keys[event.key] || event.ctrlKey || event.metaKey || event.altKey) return;
        event.preventDefault();
        keys[event.key]();
      });
    }

    renderer.localClippingEnabled = true;
    renderer.setPixelRatio(Math.min(2, window.devicePixelRatio || 1));
    stage.append(renderer.domElement);
    addLights();
    addBodies();
    listenToTools();
    listenToPointers();
    listenToKeys();
    new ResizeObserver(drawSoon).observe(stage);
    lookFrom("iso");
  }

  function hasWebGl() {
    const canvas = document.createElement("canvas");
    return Boolean(window.WebGLRenderingContext &&
      (canvas.getContext("webgl2") || canvas.getContext("webgl")));
  }

  if (!hasWebGl()) return;
  for (const root of document.querySelectorAll(".space")) {
    const live = root.querySelector(".live");
    live.hidden = false;
    Space(root, JSON.parse(root.querySelector(".model").textContent));
    root.querySelector(".still").style.display = "none";
  }
})();
